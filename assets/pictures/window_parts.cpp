// Draws what every window is made of: its background, its frame and the pictures of its buttons.
#include <QLineF>
#include <array>
#include <initializer_list>
#include <iterator>
#include <string>

#include "pictures/canvas.h"
#include "pictures/pictures.h"

namespace varek::pictures {

namespace {

namespace fs = std::filesystem;

constexpr platform::Color kStrip{18, 22, 27};  ///< frames; also behind the buttons in them

/// The looks of a button's states, in the order of the picture numbers: normal, hover, pressed.
struct State {
  platform::Color upper;
  platform::Color lower;
  platform::Color rim;
};

constexpr std::array<State, 3> kStates{{
    {{52, 61, 73}, {40, 48, 58}, {70, 81, 95}},
    {{60, 71, 84}, {46, 55, 66}, palette::kAccent},
    {{28, 34, 41}, {36, 43, 52}, {0, 130, 138}},
}};

enum class Side { Left, Top, Right, Bottom };

struct Strip {
  const char* name;
  int width;
  int height;
  Side lit;  ///< the outer side, which a thin line sets off from other windows
};

constexpr Strip kStrips[] = {
    {"frametop.jpg", 64, 30, Side::Top},
    {"frameleft.jpg", 5, 64, Side::Left},
    {"frameright.jpg", 5, 64, Side::Right},
    {"framebottom.jpg", 64, 5, Side::Bottom},
};

QRectF LitEdge(const QRectF& area, Side side) {
  switch (side) {
    case Side::Left:
      return {0, 0, 1, area.height()};
    case Side::Top:
      return {0, 0, area.width(), 1};
    case Side::Right:
      return {area.right() - 1, 0, 1, area.height()};
    case Side::Bottom:
      return {0, area.bottom() - 1, area.width(), 1};
  }
  return {};
}

void MakeStrip(const fs::path& folder, const Strip& strip) {
  Canvas canvas(strip.width, strip.height, Ink(kStrip));
  canvas.Painter().fillRect(LitEdge(canvas.Area(), strip.lit), Ink(palette::kPanelEdge));
  canvas.Save(folder / strip.name);
}

fs::path Numbered(const fs::path& folder, const char* name, size_t number) {
  return folder / (name + std::to_string(number) + ".jpg");
}

void DrawRounded(Canvas& canvas, const State& state, double radius) {
  const QRectF area = canvas.Area().adjusted(0.5, 0.5, -0.5, -0.5);
  canvas.Painter().setPen(QPen(Ink(state.rim), 1));
  canvas.Painter().setBrush(Downwards(area, Ink(state.upper), Ink(state.lower)));
  canvas.Painter().drawRoundedRect(area, radius, radius);
}

void MakeButton(const fs::path& folder, size_t number) {
  Canvas canvas(220, 44, Ink(palette::kPanel));
  DrawRounded(canvas, kStates.at(number), 8);
  canvas.Save(Numbered(folder, "button", number));
}

/// A button in the frame: a plain sign until the pointer is on it.
void MakeFrameButton(const fs::path& folder, const char* name, size_t number,
                     std::initializer_list<QLineF> sign) {
  Canvas canvas(22, 22, Ink(kStrip));
  if (number > 0) DrawRounded(canvas, kStates.at(number), 4);
  canvas.Painter().setPen(QPen(Ink(palette::kText), 1.8, Qt::SolidLine, Qt::RoundCap));
  for (const QLineF& line : sign) canvas.Painter().drawLine(line);
  canvas.Save(Numbered(folder, name, number));
}

void MakeFrameButtons(const fs::path& folder, size_t number) {
  MakeFrameButton(folder, "close", number, {QLineF(7, 7, 15, 15), QLineF(15, 7, 7, 15)});
  MakeFrameButton(folder, "minimise", number, {QLineF(6.5, 14.5, 15.5, 14.5)});
}

struct Language {
  const char* name;  ///< in the language itself
  const char* typeface;
};

/// By language index. No flags: languages are not countries.
constexpr Language kLanguages[] = {
    {"English", "DejaVu Sans"},
    {"繁體中文", "Noto Sans CJK TC"},
    {"简体中文", "Noto Sans CJK SC"},
};

/// The language picker's buttons: language00.jpg is English, normal.
void MakeLanguageButtons(const fs::path& folder, size_t number) {
  for (size_t index = 0; index < std::size(kLanguages); ++index) {
    Canvas canvas(240, 64, Ink(palette::kWindow));
    DrawRounded(canvas, kStates.at(number), 8);
    QFont font = Letters(28);
    font.setFamily(QString::fromUtf8(kLanguages[index].typeface));
    canvas.Painter().setFont(font);
    canvas.Painter().setPen(Ink(palette::kText));
    canvas.Painter().drawText(canvas.Area(), Qt::AlignCenter,
                              QString::fromUtf8(kLanguages[index].name));
    canvas.Save(Numbered(folder, ("language" + std::to_string(index)).c_str(), number));
  }
}

void MakeBackground(const fs::path& folder) {
  const QColor window = Ink(palette::kWindow);
  Canvas canvas(320, 200, window);
  canvas.Painter().fillRect(canvas.Area(),
                            Downwards(canvas.Area(), window.lighter(116), window.darker(112)));
  canvas.Save(folder / "back.jpg");
}

void MakeProgressBar(const fs::path& folder) {
  const QColor accent = Ink(palette::kAccent);
  Canvas canvas(300, 20, accent);
  canvas.Painter().fillRect(canvas.Area(),
                            Downwards(canvas.Area(), accent.darker(125), accent.darker(190)));
  canvas.Painter().fillRect(QRectF(0, 1, 300, 1), accent);
  canvas.Save(folder / "progress.jpg");
}

}  // namespace

void MakeWindowParts(const fs::path& folder) {
  MakeBackground(folder);
  MakeProgressBar(folder);
  for (const Strip& strip : kStrips) MakeStrip(folder, strip);
  for (size_t number = 0; number < kStates.size(); ++number) {
    MakeButton(folder, number);
    MakeFrameButtons(folder, number);
    MakeLanguageButtons(folder, number);
  }
}

}  // namespace varek::pictures
