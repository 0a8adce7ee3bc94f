// Libraries loaded at run time.
#pragma once

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "modules/ModuleEntry.h"

namespace handheld {

/// Loaded libraries with their reference counts. No lock is held while a module's entry runs: it
/// may wait for threads of the module that load and free other libraries.
///
/// A module still loaded when the process exits is detached before its static objects are
/// destroyed; the newest goes first.
///
/// A module that another loader loads (dlopen, or the start of a program that links it) is attached
/// when it registers its entry and detached when it takes it back. LoadLibraryW finds it loaded.
class Modules {
 public:
  static Modules& Instance();

  void SetDirectory(const std::string& path);
  void SetLibraryDirectory(const std::string& path);

  void RegisterEntry(ModuleEntry entry);
  void UnregisterEntry(ModuleEntry entry);

  /// Whether any library is loaded.
  bool HasModules() const;

  /// Null with the last error set when there is no such library or it refuses to be loaded.
  HMODULE Load(const std::string& name);
  bool Free(HMODULE handle);
  /// Null when the module itself has no such symbol.
  FARPROC FindSymbol(HMODULE handle, const std::string& name) const;
  /// Linux path that the module seems to have; empty for an unknown one. Null means the running
  /// program.
  std::string GetPath(HMODULE handle) const;

 private:
  enum class State { ATTACHING, LOADED, DETACHING };
  struct Module {
    std::string path;
    void* library = nullptr;
    HMODULE handle = nullptr;
    ModuleEntry entry = nullptr;
    State state = State::ATTACHING;
    /// Thread that attaches or detaches it.
    std::thread::id worker;
    /// Of LoadLibraryW.
    int references = 1;
    /// Whether another loader has loaded it.
    bool isForeign = false;
    std::uint64_t order = 0;
  };
  using ModulePointer = std::shared_ptr<Module>;

  std::string FindFile(const std::string& name) const;
  std::vector<std::string> GetSearchFolders() const;
  ModulePointer FindByPath(const std::string& path) const;
  ModulePointer FindByHandle(HMODULE handle) const;
  bool Open(Module& module);
  HMODULE Attach(const ModulePointer& module);
  void AttachForeign(HMODULE handle, ModuleEntry entry);
  void Detach(const ModulePointer& module, bool isProcessEnding);
  static void DetachNewest();

  mutable std::mutex mutex;
  std::condition_variable stateChanged;
  std::vector<ModulePointer> modules;
  std::map<HMODULE, ModuleEntry> entries;
  std::string directory;
  std::string libraryDirectory;
  std::uint64_t loads = 0;
};

}  // namespace handheld
