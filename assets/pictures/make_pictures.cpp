// Draws all pictures and icons of the program at build time.
//
// Usage: make_pictures OUTPUT-FOLDER

#include <QGuiApplication>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "pictures/pictures.h"

namespace {

void MakePictures(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  varek::pictures::MakeDialPanels(folder);
  varek::pictures::MakeLevelBars(folder);
  varek::pictures::MakeStatePictures(folder);
  varek::pictures::MakeIcons(folder);
  varek::pictures::MakeWindowParts(folder);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_pictures OUTPUT-FOLDER\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // A build machine has no display.
  const QGuiApplication application(argc, argv);
  try {
    MakePictures(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_pictures: %s\n", error.what());
    return 1;
  }
  return 0;
}
