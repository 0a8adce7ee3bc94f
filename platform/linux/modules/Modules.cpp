#include "modules/Modules.h"

#include <dirent.h>
#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "core/LastError.h"
#include "files/Paths.h"
#include "handheld.h"
#include "modules/ProgramFolder.h"
#include "text/WideText.h"

namespace handheld {

namespace {

constexpr std::string_view PREFIX = "lib";
constexpr std::string_view LINUX_EXTENSION = ".so";
constexpr std::string_view DEVICE_EXTENSION = ".dll";

/// A module is known by the address it was loaded at, as on the device.
HMODULE ModuleAt(const void* address) {
  Dl_info info = {};
  if (dladdr(address, &info) == 0) {
    return nullptr;
  }
  return static_cast<HMODULE>(info.dli_fbase);
}

HMODULE ModuleOf(void* library) {
  link_map* map = nullptr;
  return dlinfo(library, RTLD_DI_LINKMAP, &map) == 0 ? ModuleAt(map->l_ld) : nullptr;
}

std::string ProgramPath() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
  return length < 0 ? std::string() : std::string(path, static_cast<std::size_t>(length));
}

std::string RealPath(const std::string& path) {
  char resolved[PATH_MAX];
  return realpath(path.c_str(), resolved) == nullptr ? path : resolved;
}

/// Calls of LoadLibraryW under way on this thread.
thread_local int loadsUnderWay = 0;

/// Linux file name of a device library: "Parlex.DLL" becomes "libParlex.so".
std::string LinuxLibraryName(const std::string& fileName) {
  const std::size_t dot = fileName.rfind('.');
  const bool hasExtension =
      dot != std::string::npos && SameName(fileName.substr(dot), std::string(DEVICE_EXTENSION));
  return std::string(PREFIX) + (hasExtension ? fileName.substr(0, dot) : fileName) +
         std::string(LINUX_EXTENSION);
}

/// Path of the library in this folder; empty when it is missing.
std::string FindInFolder(const std::string& folder, const std::string& fileName) {
  // An unchanged name is accepted only for Linux libraries: the handheld's may lie in the same
  // folder.
  if (SameName(fileName.substr(std::min(fileName.size(), fileName.rfind('.'))),
               std::string(LINUX_EXTENSION))) {
    const std::string exact = FindEntry(folder, fileName);
    if (!exact.empty()) {
      return Join(folder, exact);
    }
  }
  const std::string entry = FindEntry(folder, LinuxLibraryName(fileName));
  return entry.empty() ? entry : Join(folder, entry);
}

}  // namespace

Modules& Modules::Instance() {
  static Modules& modules = *new Modules;
  return modules;
}

void Modules::SetDirectory(const std::string& path) {
  const std::lock_guard lock(mutex);
  directory = path;
}

void Modules::SetLibraryDirectory(const std::string& path) {
  const std::lock_guard lock(mutex);
  libraryDirectory = path;
}

void Modules::RegisterEntry(ModuleEntry entry) {
  const HMODULE handle = ModuleAt(reinterpret_cast<const void*>(entry));
  if (loadsUnderWay == 0) {
    AttachForeign(handle, entry);
    return;
  }
  const std::lock_guard lock(mutex);
  entries[handle] = entry;
}

void Modules::UnregisterEntry(ModuleEntry entry) {
  const HMODULE handle = ModuleAt(reinterpret_cast<const void*>(entry));
  ModulePointer foreign;
  {
    const std::lock_guard lock(mutex);
    entries.erase(handle);
    foreign = FindByHandle(handle);
  }
  if (foreign != nullptr && foreign->isForeign) {
    entry(handle, DLL_PROCESS_DETACH, nullptr);
    const std::lock_guard lock(mutex);
    std::erase(modules, foreign);
  }
}

bool Modules::HasModules() const {
  const std::lock_guard lock(mutex);
  return !modules.empty();
}

/// Runs inside of dlopen: the module is complete, its static objects included.
void Modules::AttachForeign(HMODULE handle, ModuleEntry entry) {
  const auto module = std::make_shared<Module>();
  Dl_info info = {};
  dladdr(handle, &info);
  module->path = RealPath(info.dli_fname);
  // The loader's handle stays the same for as long as the module is loaded. No reference is kept.
  module->library = dlopen(module->path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (module->library != nullptr) {
    dlclose(module->library);
  }
  module->handle = handle;
  module->entry = entry;
  module->worker = std::this_thread::get_id();
  module->references = 0;
  module->isForeign = true;
  bool hasFolder = false;
  {
    const std::lock_guard lock(mutex);
    modules.push_back(module);
    hasFolder = !directory.empty();
  }
  if (!hasFolder) {
    ChooseProgramFolder(FileNameOf(module->path));
  }
  entry(handle, DLL_PROCESS_ATTACH, nullptr);
  const std::lock_guard lock(mutex);
  module->state = State::LOADED;
  module->worker = {};
  stateChanged.notify_all();
}

std::vector<std::string> Modules::GetSearchFolders() const {
  std::vector<std::string> folders;
  {
    const std::lock_guard lock(mutex);
    if (!libraryDirectory.empty()) {
      folders.push_back(libraryDirectory);
    }
  }
  folders.push_back(FolderOf(ProgramPath()));
  folders.push_back(InstalledLibraryFolder());
  return folders;
}

std::string Modules::FindFile(const std::string& name) const {
  const std::string fileName = FileNameOf(name);
  if (fileName != name) {
    return FindInFolder(Locate(FolderOf(name)).path, fileName);
  }
  for (const std::string& folder : GetSearchFolders()) {
    std::string found = FindInFolder(folder, fileName);
    if (!found.empty()) {
      return found;
    }
  }
  return "";
}

Modules::ModulePointer Modules::FindByPath(const std::string& path) const {
  const auto found = std::find_if(modules.begin(), modules.end(), [&](const ModulePointer& module) {
    return module->path == path;
  });
  return found == modules.end() ? nullptr : *found;
}

Modules::ModulePointer Modules::FindByHandle(HMODULE handle) const {
  const auto found = std::find_if(modules.begin(), modules.end(), [&](const ModulePointer& module) {
    return module->handle == handle;
  });
  return handle == nullptr || found == modules.end() ? nullptr : *found;
}

HMODULE Modules::Load(const std::string& name) {
  const std::string file = FindFile(name);
  if (file.empty()) {
    return Fail<HMODULE>(ERROR_MOD_NOT_FOUND, nullptr);
  }
  const std::string path = RealPath(file);

  std::unique_lock lock(mutex);
  while (const ModulePointer loaded = FindByPath(path)) {
    const bool isOwn = loaded->worker == std::this_thread::get_id();
    if (loaded->state == State::LOADED || (loaded->state == State::ATTACHING && isOwn)) {
      ++loaded->references;
      lock.unlock();
      if (loaded->isForeign) {
        dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
      }
      return loaded->handle;
    }
    if (isOwn) {
      return Fail<HMODULE>(ERROR_MOD_NOT_FOUND, nullptr);
    }
    stateChanged.wait(lock);
  }
  const auto module = std::make_shared<Module>();
  module->path = path;
  module->worker = std::this_thread::get_id();
  modules.push_back(module);
  lock.unlock();
  return Attach(module);
}

bool Modules::Open(Module& module) {
  ++loadsUnderWay;
  void* library = dlopen(module.path.c_str(), RTLD_NOW | RTLD_LOCAL);
  --loadsUnderWay;
  if (library == nullptr) {
    return Fail(ERROR_MOD_NOT_FOUND, false);
  }
  const HMODULE handle = ModuleOf(library);
  const std::lock_guard lock(mutex);
  module.library = library;
  module.handle = handle;
  const auto entry = entries.find(handle);
  module.entry = entry == entries.end() ? nullptr : entry->second;
  return true;
}

HMODULE Modules::Attach(const ModulePointer& module) {
  const bool isOpen = Open(*module);
  const bool isAttached = isOpen && (module->entry == nullptr ||
                                     module->entry(module->handle, DLL_PROCESS_ATTACH, nullptr));
  if (!isAttached) {
    Detach(module, false);
    return Fail<HMODULE>(isOpen ? ERROR_DLL_INIT_FAILED : ERROR_MOD_NOT_FOUND, nullptr);
  }
  const std::lock_guard lock(mutex);
  // Registered after the construction of the module's static objects, so it runs before their
  // destruction. Libraries that the module has loaded meanwhile count as older.
  std::atexit(DetachNewest);
  module->order = ++loads;
  module->state = State::LOADED;
  module->worker = {};
  stateChanged.notify_all();
  return module->handle;
}

void Modules::Detach(const ModulePointer& module, bool isProcessEnding) {
  // A last argument that is not null tells the entry that the process ends; then nothing is
  // unloaded.
  if (module->entry != nullptr) {
    module->entry(module->handle, DLL_PROCESS_DETACH, isProcessEnding ? this : nullptr);
  }
  if (module->library != nullptr && !isProcessEnding) {
    dlclose(module->library);
  }
  const std::lock_guard lock(mutex);
  std::erase(modules, module);
  stateChanged.notify_all();
}

bool Modules::Free(HMODULE handle) {
  ModulePointer module;
  {
    const std::lock_guard lock(mutex);
    module = FindByHandle(handle);
    if (module == nullptr || module->state == State::DETACHING || module->references == 0) {
      return false;
    }
    if (--module->references > 0 && !module->isForeign) {
      return true;
    }
    if (!module->isForeign) {
      module->state = State::DETACHING;
      module->worker = std::this_thread::get_id();
    }
  }
  if (module->isForeign) {
    dlclose(module->library);
    return true;
  }
  Detach(module, false);
  return true;
}

void Modules::DetachNewest() {
  Modules& self = Instance();
  ModulePointer newest;
  {
    const std::lock_guard lock(self.mutex);
    for (const ModulePointer& module : self.modules) {
      if (module->state == State::LOADED && !module->isForeign &&
          (newest == nullptr || module->order > newest->order)) {
        newest = module;
      }
    }
    if (newest == nullptr) {
      return;
    }
    newest->state = State::DETACHING;
    newest->worker = std::this_thread::get_id();
  }
  self.Detach(newest, true);
}

FARPROC Modules::FindSymbol(HMODULE handle, const std::string& name) const {
  void* library = nullptr;
  {
    const std::lock_guard lock(mutex);
    const ModulePointer module = FindByHandle(handle);
    if (module == nullptr) {
      return Fail<FARPROC>(ERROR_INVALID_HANDLE, nullptr);
    }
    library = module->library;
  }
  void* symbol = dlsym(library, name.c_str());
  // dlsym also searches the libraries that the module depends on.
  if (symbol == nullptr || ModuleAt(symbol) != handle) {
    return Fail<FARPROC>(ERROR_PROC_NOT_FOUND, nullptr);
  }
  return reinterpret_cast<FARPROC>(symbol);
}

std::string Modules::GetPath(HMODULE handle) const {
  if (handle == nullptr) {
    return ProgramPath();
  }
  const std::lock_guard lock(mutex);
  const ModulePointer module = FindByHandle(handle);
  if (module == nullptr) {
    return "";
  }
  return directory.empty() ? module->path : Join(directory, FileNameOf(module->path));
}

}  // namespace handheld
