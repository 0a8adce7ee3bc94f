// The pages, as they were when the program was built.
#pragma once

#include <span>
#include <string_view>

namespace host {

struct EmbeddedFile {
  /// As browsers ask for it.
  std::string_view path;
  std::string_view type;
  std::string_view content;
  /// Changes with the content; with its quotes.
  std::string_view tag;
};

std::span<const EmbeddedFile> GetEmbeddedFiles();

}  // namespace host
