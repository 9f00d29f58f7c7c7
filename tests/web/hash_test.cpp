// The one-block hash and the keys and tokens made with it.

#include "web/session/hash.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

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
  for (size_t length = 0; length < 64; ++length) {
    const std::string text(length, 'x');
    EXPECT_EQ(Hash(text) == Md5(text), length <= 55) << length;
  }
  EXPECT_THROW(Hash(std::string(64, 'x')), platform::RuntimeError);
  // As long as what makes a token; the characters 57 to 60 carry no weight.
  for (const char* end : {"6789xyz", "----xyz"}) {
    EXPECT_EQ(Hash("01234567890123456789012345678901234567890123456789012345" + std::string(end)),
              "f602586ef133a4ca2399c621a716c048");
  }
}

TEST(HashTest, CharactersAreCodeUnitsOfWhichAWordKeepsItsLowHalf) {
  // Two characters of four digits fill a word; what stands in front of them falls away, and the
  // length of three or four still counts.
  EXPECT_EQ(Hash("密碼ab"), Hash("密碼cd"));
  EXPECT_NE(Hash("密碼a"), Hash("密碼ab"));
  EXPECT_NE(Hash("密a"), Hash("密b"));
  EXPECT_EQ(Hash("😀ab"), Hash("😀cd")) << "a surrogate pair counts as two";
  EXPECT_NE(Hash("\5\141"), Md5("\5\141")) << "a control character has one digit";
}

TEST(SessionTest, ATokenIsMadeOfItsOwnPasswordAndKey) {
  DataCenter = DataCenterRecord();
  DataCenter.settings.WebLoginPassword = "login";
  DataCenter.settings.WebControlPassword = "control";
  for (std::string* key : {&LoginKey, &SessionKey, &ControlKey}) *key = NewKey();
  EXPECT_EQ(LoginKey.size(), 31U);
  EXPECT_NE(LoginKey, SessionKey);
  EXPECT_EQ(LoginToken(), Hash(Hash("login") + LoginKey));
  EXPECT_EQ(SessionToken(), Hash(Hash("login") + SessionKey));
  EXPECT_EQ(ControlToken(), Hash(Hash("control") + ControlKey));
}

}  // namespace
}  // namespace varek
