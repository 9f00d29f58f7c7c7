#include "platform/system/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

std::string& Folder() {
  static std::string folder = fs::read_symlink("/proc/self/exe").parent_path().string();
  return folder;
}

/// The entry of `folder` that is `name`, first exactly, then without regard to case.
fs::path FindComponent(const fs::path& folder, const std::string& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (SameIgnoringCase(entry.path().filename().string(), name)) return entry.path();
  }
  return folder / name;
}

[[noreturn]] void FailAccess(const std::string& path) {
  throw RuntimeError(errors::kPathAccess, path + ": " + std::strerror(errno));
}

void WriteAll(int file, const std::string& bytes, const std::string& path) {
  size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = write(file, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno != EINTR) FailAccess(path);
    if (count > 0) written += static_cast<size_t>(count);
  }
  if (fsync(file) != 0) FailAccess(path);
}

/// A rename is on the disk only when the folder that holds it is.
void SyncFolder(const std::string& path) {
  const std::string parent = fs::path(path).parent_path().string();
  const int folder = open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

std::string NeighbourOf(const std::string& path) { return path + ".new"; }

/// Rights of an owner or a group that can't be kept would open the file to others.
void KeepOwnerAndRights(int file, const std::string& path) {
  struct stat old {};
  mode_t rights = 0600;
  if (stat(path.c_str(), &old) == 0) {
    const bool kept = fchown(file, old.st_uid, old.st_gid) == 0;
    rights = old.st_mode & (kept ? 0777 : 0700);
  }
  if (fchmod(file, rights) != 0) FailAccess(path);
}

/// A file descriptor that is closed on every way out.
struct OpenFile {
  explicit OpenFile(int opened) : descriptor(opened) {}
  ~OpenFile() { close(descriptor); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  int descriptor;
};

}  // namespace

std::string ProgramFolder() { return Folder(); }

void SetProgramFolder(const std::string& folder) { Folder() = folder; }

std::string ProgramPath(const std::string& path) {
  std::string hostPath = path;
  std::ranges::replace(hostPath, '\\', '/');
  fs::path result = Folder();
  std::istringstream components(hostPath);
  for (std::string name; std::getline(components, name, '/');) {
    if (name.empty() || name == ".") continue;
    if (name == "..") throw RuntimeError(errors::kPathNotFound, "path leaves the program folder");
    result = FindComponent(result, name);
  }
  return result.string();
}

std::string ImagePath(const std::string& name) { return ProgramPath("\\image\\" + name); }

bool MayUseProgramFolder() {
  const auto forbidden = [](const std::string& path, int rights) {
    return access(path.c_str(), rights) != 0 && errno == EACCES;
  };
  const std::string folder = ProgramFolder();
  return !forbidden(folder, W_OK | X_OK) && !forbidden(folder + "/config.qmz", R_OK);
}

bool IsFile(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

std::string ReadWholeFile(const std::string& path) {
  if (!IsFile(path)) throw RuntimeError(errors::kFileNotFound, path + ": no such file");
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  if (file.peek() != std::ifstream::traits_type::eof()) bytes << file.rdbuf();
  // A read that fails on the way shows in the copy alone.
  if (file.bad() || bytes.fail() || !file.is_open()) FailAccess(path);
  return bytes.str();
}

void ReplaceFile(const std::string& path, const std::string& bytes) {
  const std::string neighbour = NeighbourOf(path);
  RemoveNeighbour(path);  // One of another account may be left, with rights of its own.
  const int descriptor =
      open(neighbour.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
  if (descriptor < 0) FailAccess(neighbour);
  const OpenFile file(descriptor);
  try {
    WriteAll(file.descriptor, bytes, neighbour);
    KeepOwnerAndRights(file.descriptor, path);
    if (rename(neighbour.c_str(), path.c_str()) != 0) FailAccess(path);
  } catch (...) {
    RemoveNeighbour(path);
    throw;
  }
  SyncFolder(path);
}

void RemoveNeighbour(const std::string& path) { unlink(NeighbourOf(path).c_str()); }

}  // namespace platform
