#include "support/fonts.h"

#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "support/monitor_fixture.h"

namespace varek::test {

namespace fs = std::filesystem;

namespace {

constexpr char kPlain[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr char kPlainBold[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf";
constexpr char kChinese[] = "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc";

/// Ascent 1508 and descent 374, in thousandths of the letters' size: three tenths more than usual.
constexpr std::string_view kTallLines("\x05\xe4\x01\x76", 4);

/// Big-endian, as all numbers of a font file are.
uint32_t Number(const std::string& bytes, size_t at) {
  uint32_t number = 0;
  for (const char byte : bytes.substr(at, 4)) number = number << 8 | static_cast<uint8_t>(byte);
  return number;
}

/// The ascent and the descent of the face that begins at `face`, as the toolkit takes them.
void StretchFace(std::string& bytes, size_t face) {
  size_t entry = face + 12;
  while (bytes.compare(entry, 4, "OS/2") != 0) entry += 16;
  bytes.replace(Number(bytes, entry + 8) + 74, 4, kTallLines);
}

void WriteTallFont(const std::string& path) {
  std::ifstream file(kChinese, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(file), {});
  for (uint32_t i = 0; i < Number(bytes, 8); ++i) StretchFace(bytes, Number(bytes, 12 + 4 * i));
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace

bool BringFonts() {
  static const TemporaryFolder folder;
  for (const char* font : {kPlain, kPlainBold, kChinese}) {
    if (!fs::exists(font)) return false;
    fs::create_symlink(font, folder.Path() + "/" + fs::path(font).filename().string());
  }
  if (const char* kind = getenv("VAREK_TEST_FONTS"); kind && std::string(kind) == "tall") {
    const std::string chinese = folder.Path() + "/" + fs::path(kChinese).filename().string();
    fs::remove(chinese);
    WriteTallFont(chinese);
  }
  std::ofstream(folder.Path() + "/fonts.conf")
      << "<fontconfig><dir>" << folder.Path() << "</dir><cachedir>" << folder.Path()
      << "</cachedir></fontconfig>";
  setenv("FONTCONFIG_FILE", (folder.Path() + "/fonts.conf").c_str(), 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  return true;
}

}  // namespace varek::test
