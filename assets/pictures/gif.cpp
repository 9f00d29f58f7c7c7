#include "pictures/gif.h"

#include <cstdint>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace varek::pictures {

namespace {

constexpr int kColours = 256;
constexpr int kClear = kColours;  ///< code that empties the table of sequences
constexpr int kEnd = kColours + 1;
constexpr int kFirstFree = kColours + 2;
constexpr int kFirstWidth = 9;
constexpr int kCodes = 4096;
constexpr size_t kBlock = 255;  ///< most bytes of a data block

using Bytes = std::string;

void AddByte(Bytes& bytes, int value) { bytes += static_cast<char>(value); }

void AddWord(Bytes& bytes, int value) {
  AddByte(bytes, value & 0xFF);
  AddByte(bytes, value >> 8);
}

/// The picture as indices into its colours.
struct Indexed {
  std::vector<QRgb> colours;
  std::vector<uint8_t> pixels;
};

/// False when the colours, less the bits outside `mask`, are too many.
bool Index(const QImage& image, QRgb mask, Indexed& result) {
  std::map<QRgb, uint8_t> places;
  result = {};
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb colour = image.pixel(x, y) & mask;
      const auto [place, isNew] = places.try_emplace(colour, result.colours.size());
      if (isNew && result.colours.size() == kColours) return false;
      if (isNew) result.colours.push_back(colour);
      result.pixels.push_back(place->second);
    }
  }
  return true;
}

Indexed WithFewColours(const QImage& image) {
  Indexed result;
  QRgb mask = 0xFFFFFF;
  while (!Index(image, mask, result)) mask &= mask << 1 & 0xFEFEFE;
  return result;
}

/// Codes of growing width, low bits first.
class CodeBytes final {
 public:
  void Add(int code, int width) {
    pending_ |= static_cast<uint32_t>(code) << count_;
    for (count_ += width; count_ >= 8; count_ -= 8) {
      AddByte(bytes_, static_cast<int>(pending_ & 0xFF));
      pending_ >>= 8;
    }
  }
  Bytes Finish() {
    if (count_ > 0) AddByte(bytes_, static_cast<int>(pending_));
    return std::move(bytes_);
  }

 private:
  Bytes bytes_;
  uint32_t pending_ = 0;
  int count_ = 0;
};

/// LZW: a code stands for a sequence that came before, or for one pixel.
class Compressor final {
 public:
  Bytes Compress(const std::vector<uint8_t>& pixels) {
    Restart();
    int sequence = pixels.front();
    for (size_t at = 1; at < pixels.size(); ++at) sequence = Extend(sequence, pixels[at]);
    codes_.Add(sequence, width_);
    codes_.Add(kEnd, width_);
    return codes_.Finish();
  }

 private:
  void Restart() {
    codes_.Add(kClear, width_);
    known_.clear();
    next_ = kFirstFree;
    width_ = kFirstWidth;
  }

  int Extend(int sequence, uint8_t pixel) {
    const auto known = known_.find({sequence, pixel});
    if (known != known_.end()) return known->second;
    codes_.Add(sequence, width_);
    Learn(sequence, pixel);
    return pixel;
  }

  void Learn(int sequence, uint8_t pixel) {
    if (next_ == kCodes) return Restart();
    if (next_ == 1 << width_) ++width_;
    known_[{sequence, pixel}] = next_++;
  }

  CodeBytes codes_;
  std::map<std::pair<int, uint8_t>, int> known_;
  int next_ = kFirstFree;
  int width_ = kFirstWidth;
};

void AddHead(Bytes& bytes, const QImage& image, const std::vector<QRgb>& colours) {
  constexpr int kTableOf256 = 0xF7;
  bytes += "GIF89a";
  AddWord(bytes, image.width());
  AddWord(bytes, image.height());
  for (const int value : {kTableOf256, 0, 0}) AddByte(bytes, value);
  for (size_t place = 0; place < kColours; ++place) {
    const QRgb colour = place < colours.size() ? colours[place] : 0;
    for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)}) AddByte(bytes, part);
  }
}

void AddPixels(Bytes& bytes, const QImage& image, const std::vector<uint8_t>& pixels) {
  bytes += ',';
  for (const int value : {0, 0, image.width(), image.height()}) AddWord(bytes, value);
  AddByte(bytes, 0);
  AddByte(bytes, kFirstWidth - 1);
  const Bytes data = Compressor().Compress(pixels);
  for (size_t at = 0; at < data.size(); at += kBlock) {
    const Bytes block = data.substr(at, kBlock);
    AddByte(bytes, static_cast<int>(block.size()));
    bytes += block;
  }
  AddByte(bytes, 0);
}

}  // namespace

void SaveGif(const QImage& image, const std::filesystem::path& path) {
  const Indexed indexed = WithFewColours(image);
  Bytes bytes;
  AddHead(bytes, image, indexed.colours);
  AddPixels(bytes, image, indexed.pixels);
  bytes += ';';
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace varek::pictures
