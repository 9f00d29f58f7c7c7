// Writes pictures as GIF, which the toolkit only reads.
#pragma once

#include <QImage>
#include <filesystem>

namespace varek::pictures {

/// Throws std::runtime_error when the file can't be written. A picture of more than 256 colours
/// loses the lowest bits of its colours until it has no more; transparency is not kept.
void SaveGif(const QImage& image, const std::filesystem::path& path);

}  // namespace varek::pictures
