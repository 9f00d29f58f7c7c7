// The one-block hash and the keys and tokens made with it.

#include "web/session/hash.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <algorithm>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "web/session/session.h"

namespace varek {
namespace {

std::string Md5(const std::string& text) {
  return QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Md5)
      .toHex()
      .toStdString();
}

TEST(HashTest, IsMd5UpToFiftyFiveCharactersAndNoFurther) {
  EXPECT_EQ(Hash(""), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(Hash("a"), "0cc175b9c0f1b6a831c399e269772661");
  EXPECT_EQ(Hash("abc"), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(Hash("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
  EXPECT_EQ(Hash("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
  for (size_t length = 0; length < 64; ++length) {
    const std::string text(length, 'x');
    EXPECT_EQ(Hash(text) == Md5(text), length <= 55) << length;
  }
  EXPECT_THROW(Hash(std::string(64, 'x')), platform::RuntimeError);
}

TEST(HashTest, CharactersAreCodeUnitsOfWhichAWordKeepsItsLowHalf) {
  // Two characters of four digits fill a word; what stands in front of them falls away, and the
  // length of three or four still counts.
  EXPECT_EQ(Hash("密碼ab"), Hash("密碼cd"));
  EXPECT_NE(Hash("密碼a"), Hash("密碼ab"));
  EXPECT_NE(Hash("密a"), Hash("密b"));
  EXPECT_EQ(Hash("😀ab"), Hash("😀cd")) << "a surrogate pair counts as two";
  EXPECT_NE(Hash("\x05"
                 "abc"),
            Md5("\x05"
                "abc"))
      << "a control character has one digit";
}

TEST(SessionTest, FourCharactersOfAKeyCarryNoWeight) {
  DataCenter = DataCenterRecord();
  DataCenter.settings.WebLoginPassword = "secret";
  LoginKey = NewKey();
  ASSERT_EQ(LoginKey.size(), 31U);
  const std::string token = LoginToken();
  EXPECT_EQ(token, Hash(Hash("secret") + LoginKey));
  for (size_t i = 0; i < LoginKey.size(); ++i) {
    const std::string key = LoginKey;
    LoginKey[i] = '-';
    EXPECT_EQ(LoginToken() == token, i >= 24 && i <= 27) << i;
    LoginKey = key;
  }
}

TEST(SessionTest, KeysDifferAndTheEndsOfTheTableComeHalfAsOften) {
  std::string all;
  for (int i = 0; i < 4000; ++i) all += NewKey();
  const auto count = [&](char c) { return static_cast<double>(std::ranges::count(all, c)); };
  const double usual = 4000.0 * 31 / 61;
  EXPECT_NE(all.substr(0, 31), all.substr(31, 31));
  EXPECT_NEAR(count('A'), usual / 2, 250);
  EXPECT_NEAR(count('9'), usual / 2, 250);
  EXPECT_NEAR(count('b'), usual, 350);
}

}  // namespace
}  // namespace varek
