// A disk that remembers only what was synced. To be loaded into a program with LD_PRELOAD.
//
// Each fsync or fdatasync copies what was synced into the folder that FORGETFUL_DISK names: of a
// file the content, of a folder the list of what lies in it. What is not there does not survive a
// power cut. Files are told apart by inode and time of birth, as inodes are used again.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Identity {
  std::string key;
  mode_t mode = 0;
};

Identity Identify(int folder, const char* name, int flags) {
  struct statx status = {};
  if (statx(folder, name, flags, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
    return {};
  }
  return {std::to_string(status.stx_ino) + "-" + std::to_string(status.stx_btime.tv_sec) + "-" +
              std::to_string(status.stx_btime.tv_nsec),
          status.stx_mode};
}

std::string ReadAll(int file) {
  std::string content;
  std::vector<char> block(65536);
  ssize_t count = 0;
  while ((count = pread(file, block.data(), block.size(), static_cast<off_t>(content.size()))) >
         0) {
    content.append(block.data(), static_cast<std::size_t>(count));
  }
  return content;
}

/// A line for each entry: key, a space, name.
std::string List(int folder) {
  const int own = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(own), &closedir);
  std::string list;
  while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") {
      list += Identify(folder, entry->d_name, AT_SYMLINK_NOFOLLOW).key + " " + name + "\n";
    }
  }
  return list;
}

/// Whole or not at all, as the program may be killed meanwhile.
void Put(const std::string& path, const std::string& content) {
  static std::atomic<int> counter = 0;
  const std::string aside =
      path + ".new" + std::to_string(getpid()) + "." + std::to_string(counter.fetch_add(1));
  if (FILE* file = std::fopen(aside.c_str(), "wb")) {
    std::fwrite(content.data(), 1, content.size(), file);
    std::fclose(file);
    std::rename(aside.c_str(), path.c_str());
  }
}

void Remember(int synced) {
  const char* disk = std::getenv("FORGETFUL_DISK");
  const Identity identity = Identify(synced, "", AT_EMPTY_PATH);
  if (disk == nullptr) {
    return;
  }
  if (S_ISREG(identity.mode)) {
    // The program may have opened it for writing only.
    const int file =
        open(("/proc/self/fd/" + std::to_string(synced)).c_str(), O_RDONLY | O_CLOEXEC);
    Put(std::string(disk) + "/" + identity.key, ReadAll(file));
    close(file);
  } else if (S_ISDIR(identity.mode)) {
    Put(std::string(disk) + "/" + identity.key, List(synced));
  }
}

using Sync = int (*)(int);

int SyncAndRemember(const char* call, int file) {
  const int result = reinterpret_cast<Sync>(dlsym(RTLD_NEXT, call))(file);
  if (result == 0) {
    Remember(file);
  }
  return result;
}

}  // namespace

extern "C" int fsync(int file) {
  return SyncAndRemember("fsync", file);
}

extern "C" int fdatasync(int file) {
  return SyncAndRemember("fdatasync", file);
}
