// Prints the manuals at build time: every HTML source below a folder becomes a PDF file of the same
// name in the same folder of the output, the pictures of its own language set in.
//
// Usage: make_manuals SOURCE-FOLDER PICTURE-FOLDER OUTPUT-FOLDER

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextFrame>
#include <QUrl>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr int kDotsPerInch = 300;
/// The two centimetres that the toolkit keeps free, in its dots of 1/96 inch.
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

/// A heading, or a picture above its caption, is not left alone at the foot of a page. The pages
/// are laid out for this as the printing will do it, margins included.
void KeepTogether(QTextDocument& document, QPdfWriter& writer) {
  QAbstractTextDocumentLayout& layout = *document.documentLayout();
  layout.setPaintDevice(&writer);
  QTextFrameFormat margins = document.rootFrame()->frameFormat();
  margins.setMargin(kPrintMargin);
  document.rootFrame()->setFrameFormat(margins);
  document.setPageSize(QSizeF(writer.width(), writer.height()));
  const auto page = [&](const QTextBlock& block) {
    return std::floor(layout.blockBoundingRect(block).bottom() / writer.height());
  };
  for (QTextBlock block = document.begin(); block.next().isValid(); block = block.next()) {
    if (!BelongsToNext(block) || page(block) == page(block.next())) continue;
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
  }
  document.setPageSize(QSizeF());
}

void Print(const fs::path& source, const QString& typeface, const fs::path& pictures,
           const fs::path& output) {
  QTextDocument document;
  document.setDefaultFont(QFont(typeface, 10));
  document.setDefaultStyleSheet(QString::fromLatin1(kSheet));
  // Printing works on a copy, which keeps this address of the document but no other.
  document.setMetaInformation(
      QTextDocument::DocumentUrl,
      QUrl::fromLocalFile(Text(fs::absolute(pictures)) + QLatin1Char('/')).toString());
  document.setHtml(ReadSource(source));
  CheckPictures(document, pictures);
  QPdfWriter writer(Text(output));
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setResolution(kDotsPerInch);
  writer.setTitle(document.metaInformation(QTextDocument::DocumentTitle));
  KeepTogether(document, writer);
  document.print(&writer);
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
