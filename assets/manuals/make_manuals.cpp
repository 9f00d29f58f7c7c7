// Prints the manuals at build time: every HTML source below a folder becomes a PDF file of the same
// name in the same folder of the output, the pictures of its own language set in.
//
// Usage: make_manuals SOURCE-FOLDER PICTURE-FOLDER OUTPUT-FOLDER

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <QUrl>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kDotsPerInch = 300;
/// Two centimetres, in the toolkit's dots of 1/96 inch.
constexpr int kPrintMargin = 75;

constexpr char kSheet[] = R"(
h1 { color: #10303c; font-size: 22pt; }
h2 { color: #006a72; font-size: 14pt; margin-top: 18px; }
p, li, td, th { line-height: 130%; }
th { text-align: left; background-color: #e6eef0; }
.caption { color: #5a6670; font-size: 8pt; }
)";

struct Language {
  const char* folder;
  const char* typeface;
  const char* pictures;  ///< below the folder of the pictures, which are English themselves
};

constexpr Language kLanguages[] = {
    {"English", "DejaVu Sans", ""},
    {"Big5", "Noto Sans CJK TC", "Big5"},
    {"GB232", "Noto Sans CJK SC", "GB232"},
};

QString Text(const fs::path& path) { return QString::fromStdString(path.string()); }

/// A line end in the source is a blank in the text, which Chinese does not have between characters.
QString WithoutBlanks(QString html) {
  static const QRegularExpression lineEnd(
      QStringLiteral("(?<=[\\x{2018}-\\x{201d}\\x{3000}-\\x{ffef}])\\n"
                     "(?=[\\x{2018}-\\x{201d}\\x{3000}-\\x{ffef}])"));
  return html.remove(lineEnd);
}

QString ReadSource(const fs::path& path) {
  QFile file(Text(path));
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + path.string());
  return WithoutBlanks(QString::fromUtf8(file.readAll()));
}

/// A picture that is missing would take the text around it along, silently.
void CheckPictures(const QTextDocument& document, const fs::path& pictures) {
  for (const QTextFormat& format : document.allFormats()) {
    if (!format.isImageFormat()) continue;
    const fs::path picture = pictures / format.toImageFormat().name().toStdString();
    if (!fs::exists(picture)) throw std::runtime_error("no picture " + picture.string());
  }
}

bool BelongsToNext(const QTextBlock& block) {
  return block.blockFormat().headingLevel() > 0 ||
         block.text() == QChar::ObjectReplacementCharacter;
}

bool EndsChapter(const QTextBlock& block) {
  return !block.next().isValid() || block.next().blockFormat().headingLevel() > 0;
}

void LayOut(QTextDocument& document, QPdfWriter& writer) {
  document.documentLayout()->setPaintDevice(&writer);
  QTextFrameFormat margins = document.rootFrame()->frameFormat();
  margins.setMargin(kPrintMargin);
  document.rootFrame()->setFrameFormat(margins);
  document.setPageSize(QSizeF(writer.width(), writer.height()));
}

std::vector<int> PagesOfLines(const QTextBlock& block) {
  const QTextDocument& document = *block.document();
  const qreal top = document.documentLayout()->blockBoundingRect(block).top();
  std::vector<int> pages;
  for (int i = 0; i < block.layout()->lineCount(); ++i) {
    const QRectF line = block.layout()->lineAt(i).rect();
    pages.push_back(static_cast<int>((top + line.center().y()) / document.pageSize().height()));
  }
  return pages;
}

/// True when a page would begin or end with one line of the block.
bool HasLoneLine(const std::vector<int>& pages) {
  const size_t count = pages.size();
  return count > 1 && (pages[0] != pages[1] || pages[count - 2] != pages[count - 1]);
}

/// True when the next block has to move to another page and should take this one along: a heading
/// or a picture stays above what it belongs to, be it a whole table, and the one line that ends a
/// chapter has company.
bool StaysWithNext(const QTextBlock& block) {
  if (!block.next().isValid()) return false;
  const QTextTable* const table = QTextCursor(block.next()).currentTable();
  const QTextBlock next = table ? table->lastCursorPosition().block() : block.next();
  const std::vector<int> pages = PagesOfLines(next);
  if (pages.empty()) return false;
  const int page = table ? pages.back() : pages.front();
  if (page == PagesOfLines(block).back()) return false;
  return BelongsToNext(block) || (pages.size() == 1 && EndsChapter(next));
}

void BreakBefore(QTextBlock block) {
  while (BelongsToNext(block.previous())) block = block.previous();
  QTextBlockFormat format = block.blockFormat();
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(block).setBlockFormat(format);
  QTextDocument& document = *QTextCursor(block).document();
  document.setPageSize(document.pageSize());  // Lays out all: the toolkit loses blocks otherwise.
}

/// Moves to the next page what would be torn from its neighbours. Tables break by themselves.
void KeepTogether(QTextDocument& document) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (QTextCursor(block).currentTable() != nullptr || PagesOfLines(block).empty()) continue;
    if (HasLoneLine(PagesOfLines(block)) || StaysWithNext(block)) BreakBefore(block);
  }
}

void DrawNumber(QPainter& painter, const QRectF& page, const QTextDocument& document, int number) {
  const qreal margin = kPrintMargin * kDotsPerInch / 96.0;
  painter.setFont(document.defaultFont());
  painter.drawText(page.adjusted(0, 0, -margin, -margin / 2), Qt::AlignRight | Qt::AlignBottom,
                   QString::number(number));
}

/// Draws the very layout that was judged: a printing of the toolkit's would lay out once more.
void Draw(const QTextDocument& document, QPdfWriter& writer) {
  QPainter painter(&writer);
  const QRectF page(QPointF(), document.pageSize());
  for (int i = 0; i < document.pageCount(); ++i) {
    if (i > 0) writer.newPage();
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = page.translated(0, i * page.height());
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.save();
    painter.translate(0, -context.clip.top());
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
    DrawNumber(painter, page, document, i + 1);
  }
}

void Print(const fs::path& source, const QString& typeface, const fs::path& pictures,
           const fs::path& output) {
  QTextDocument document;
  document.setDefaultFont(QFont(typeface, 10));
  document.setDefaultStyleSheet(QString::fromLatin1(kSheet));
  document.setMetaInformation(
      QTextDocument::DocumentUrl,
      QUrl::fromLocalFile(Text(fs::absolute(pictures)) + QLatin1Char('/')).toString());
  document.setHtml(ReadSource(source));
  CheckPictures(document, pictures);
  QPdfWriter writer(Text(output));
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setResolution(kDotsPerInch);
  writer.setTitle(document.metaInformation(QTextDocument::DocumentTitle));
  LayOut(document, writer);
  KeepTogether(document);
  Draw(document, writer);
  if (!fs::exists(output)) throw std::runtime_error("cannot write " + output.string());
}

void MakeManuals(const fs::path& sources, const fs::path& pictures, const fs::path& output) {
  for (const Language& language : kLanguages) {
    const fs::path folder = output / language.folder;
    fs::create_directories(folder);
    for (const auto& source : fs::directory_iterator(sources / language.folder)) {
      const fs::path name = source.path().stem().replace_extension("pdf");
      Print(source.path(), QString::fromLatin1(language.typeface), pictures / language.pictures,
            folder / name);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: make_manuals SOURCE-FOLDER PICTURE-FOLDER OUTPUT-FOLDER\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // A build machine has no display.
  const QGuiApplication application(argc, argv);
  try {
    MakeManuals(argv[1], argv[2], argv[3]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_manuals: %s\n", error.what());
    return 1;
  }
  return 0;
}
