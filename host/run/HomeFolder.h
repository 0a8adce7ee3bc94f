// The folder that stands for the handheld's program folder.
#pragma once

#include <string>

namespace host {

/// Holds the settings file, drives and tracks, and pictures, sounds or a display font that the user
/// prefers to the program's.
class HomeFolder {
 public:
  enum class ReadOnly { REFUSED, ALLOWED };

  /// Uses the folder `asked`; if that is empty, "ferolin" in the user's data folder. Makes it where
  /// it is missing. Throws HostError when the folder cannot be used or, unless `readOnly` allows it,
  /// cannot be written.
  HomeFolder(const std::string& asked, ReadOnly readOnly);

  const std::string& GetPath() const { return path; }

  /// False when nothing can be kept in the folder.
  bool IsWritable() const { return problem.empty(); }
  /// Why it cannot be written, for the user; empty when it can.
  const std::string& GetProblem() const { return problem; }

 private:
  std::string path;
  std::string problem;
};

}  // namespace host
