// The pictures of frames and buttons. They lie outside the program, so that they can be replaced
// without a new build.
#pragma once

#include <QPixmap>
#include <string>

namespace varek {

/// Reads `\image\<file>` below the program folder. Throws RuntimeError 53 when it is missing and
/// 481 when it is no picture.
QPixmap LoadPicture(const std::string& file);

}  // namespace varek
