// What the five lamps of the dashboard show, as rules without a window: which are lit, with which
// picture, and what each says when the pointer rests on it.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace varek {

constexpr int kLampCount = 5;

/// All pictures that a lamp can show, and those that are kept but shown by none.
extern const std::array<const char*, 18> kLampPictures;

/// Lamps 1 to 4 are dark without a link, and lamp 4 also while the mains are out, since the way of
/// working says nothing then.
bool IsLampShown(int lamp);

/// File of the picture for the present state; nothing when the lamp stays as it is.
std::optional<std::string> LampPicture(int lamp);

/// The present state in words.
std::string LampText(int lamp);

}  // namespace varek
