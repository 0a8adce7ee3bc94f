#include "files/Paths.h"

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

#include "files/PathMap.h"
#include "handheld.h"
#include "text/WideText.h"

namespace handheld {

namespace {

bool Exists(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0;
}

bool IsFolder(const std::string& path) {
  struct stat status;
  return stat(path.empty() ? "." : path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string WithoutTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') {
    path.pop_back();
  }
  return path;
}

}  // namespace

std::string Join(const std::string& folder, const std::string& name) {
  if (folder.empty() || folder.back() == '/') {
    return folder + name;
  }
  return folder + '/' + name;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) {
    return "";
  }
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string FileNameOf(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string FindEntry(const std::string& folder, const std::string& name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()),
                                                    closedir);
  if (entries == nullptr) {
    return "";
  }
  const std::u16string wanted = FoldCase(WideFromUtf8(name));
  while (const dirent* entry = readdir(entries.get())) {
    if (FoldCase(WideFromUtf8(entry->d_name)) == wanted) {
      return entry->d_name;
    }
  }
  return "";
}

Location Locate(const std::string& linuxPath) {
  const std::string path = WithoutTrailingSlashes(linuxPath);
  if (path.empty()) {
    return {};
  }
  if (Exists(path)) {
    return {path, true, true};
  }

  const std::string folder = FolderOf(path);
  const std::string name = FileNameOf(path);
  const Location parent =
      folder.empty() || folder == "/" ? Location{folder, true, true} : Locate(folder);
  if (!parent.exists || !IsFolder(parent.path)) {
    return {Join(parent.path, name), false, false};
  }

  const std::string entry = FindEntry(parent.path, name);
  return {Join(parent.path, entry.empty() ? name : entry), !entry.empty(), true};
}

Location Locate(LPCWSTR devicePath) {
  return Locate(LinuxPath(WideText(devicePath)));
}

std::u16string DevicePath(const std::string& path) {
  return PathMap::Instance().ToDevice(path);
}

std::string LinuxPath(const std::u16string& devicePath) {
  return PathMap::Instance().ToLinux(devicePath);
}

void MapPath(const std::u16string& devicePath, const std::string& linuxPath) {
  PathMap::Instance().Set(devicePath, linuxPath);
}

}  // namespace handheld
