#include "autosave/save_jobs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/system/paths.h"

namespace sidecar {

namespace fs = std::filesystem;

namespace {

constexpr char kFolder[] = "autosave.d";

bool IsPassedOver(const std::string& name) {
  return name.starts_with('.') || name.ends_with('~') || name.find(".dpkg-") != std::string::npos;
}

/// Why a file or folder can't be trusted; empty when it can.
std::string Distrust(const struct stat& info) {
  if (S_ISLNK(info.st_mode)) return "is a link";
  if (info.st_uid != geteuid() && info.st_uid != 0) return "belongs to another user";
  if (info.st_mode & (S_IWGRP | S_IWOTH)) return "can be written by others";
  return "";
}

void Sort(const fs::path& path, SaveJobs& jobs) {
  const std::string name = path.filename().string();
  struct stat info {};
  if (IsPassedOver(name) || lstat(path.c_str(), &info) != 0) return;
  const bool executable = access(path.c_str(), X_OK) == 0;
  if (!executable || (!S_ISREG(info.st_mode) && !S_ISLNK(info.st_mode))) return;
  const std::string distrust = Distrust(info);
  if (distrust.empty()) return jobs.names.push_back(name);
  jobs.refusals.push_back(name + ": not run, it " + distrust);
}

}  // namespace

std::string SaveFolder() { return platform::ProgramFolder() + "/" + kFolder; }

SaveJobs FindSaveJobs() {
  const std::string folder = SaveFolder();
  struct stat info {};
  if (lstat(folder.c_str(), &info) != 0) return {};
  const std::string distrust = Distrust(info);
  if (!distrust.empty()) return {{}, {folder + ": nothing is run, the folder " + distrust}};
  SaveJobs jobs;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    Sort(entry->path(), jobs);
  }
  if (error) jobs.refusals.push_back(folder + ": " + error.message());
  std::ranges::sort(jobs.names);
  std::ranges::sort(jobs.refusals);
  return jobs;
}

}  // namespace sidecar
