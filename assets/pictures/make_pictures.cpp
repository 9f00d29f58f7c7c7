// Draws all pictures and icons of the program at build time.
//
// Usage: make_pictures PICTURE-FOLDER WEB-PICTURE-FOLDER

#include <QGuiApplication>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "pictures/pictures.h"

namespace {

namespace fs = std::filesystem;

void MakePictures(const fs::path& folder, const fs::path& webFolder) {
  fs::create_directories(folder);
  fs::create_directories(webFolder);
  varek::pictures::MakeDialPanels(folder);
  varek::pictures::MakeLevelBars(folder);
  varek::pictures::MakeStatePictures(folder);
  varek::pictures::MakeIcons(folder);
  varek::pictures::MakeWindowParts(folder);
  varek::pictures::MakeWebPictures(webFolder);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_pictures PICTURE-FOLDER WEB-PICTURE-FOLDER\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // A build machine has no display.
  const QGuiApplication application(argc, argv);
  try {
    MakePictures(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_pictures: %s\n", error.what());
    return 1;
  }
  return 0;
}
