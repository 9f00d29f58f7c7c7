// Opening a document with the program that the desktop has registered for its type.
#pragma once

#include <functional>
#include <string>

namespace platform {

enum class OpenResult { Opened, FileMissing, NoProgram };

/// Hands the file `path` (a host name) to its program and does not wait for it. NoProgram where
/// the desktop has none, or there is no desktop.
OpenResult OpenDocument(const std::string& path);

/// Takes the desktop's place for tests: gets the path of an existing file and tells whether a
/// program took it. nullptr restores.
void ReplaceDocumentOpener(std::function<bool(const std::string& path)> open);

}  // namespace platform
