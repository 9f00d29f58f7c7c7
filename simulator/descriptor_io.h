// The two operations that every user of a descriptor needs.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

/// Writes all of `bytes`. False when that is not possible, also because a descriptor that does not
/// block takes no more; a part may then have gone out.
bool WriteAll(int fd, std::string_view bytes);

enum class ReadResult { Data, NothingNow, Ended };

/// Reads what waits, at most 4 KiB, into `bytes`. Ended stands for the end of the input and for
/// every failure that more reading won't cure.
ReadResult ReadSome(int fd, std::string& bytes);

/// Throws std::system_error with the current errno and `what`.
[[noreturn]] void ThrowSystemError(const std::string& what);

/// Makes the folder in which `path` is to stand. Throws std::filesystem::filesystem_error.
void CreateParentFolder(const std::string& path);

}  // namespace simulator
