// The name of a drive's source, in files of all formats.
#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>

#include "TryInput.h"
#include "drives/CsvWriter.h"
#include "drives/GeoJsonWriter.h"
#include "drives/GpxWriter.h"
#include "drives/KmlWriter.h"
#include "support/TempFolder.h"

namespace {

template <class Writer>
std::string Export(const std::string& source) {
  static const testing_support::TempFolder folder;
  host::TextFile file(folder.Path("drive"));
  Writer writer(file);
  host::Drive drive;
  drive.number = 1;
  drive.source = source;
  host::Fix fix;
  fix.hasFix = true;
  fix.timeMs = 1'711'195'200'000;
  fix.latitude = 55.75;
  fix.longitude = 37.5;
  writer.Begin();
  writer.BeginDrive(drive);
  writer.AddSegment({fix});
  writer.EndDrive();
  writer.End();
  file.Finish();
  return folder.Read("drive");
}

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

/// No name may add an element, a line or a field.
template <class Writer>
void CheckMarks(const std::string& source, std::string_view marks) {
  static const std::string plain = Export<Writer>("plain");
  const std::string text = Export<Writer>(source);
  for (const char mark : marks) {
    Require(std::ranges::count(text, mark) == std::ranges::count(plain, mark));
  }
}

}  // namespace

void TryInput(const unsigned char* data, std::size_t size) {
  const std::string source(reinterpret_cast<const char*>(data), size);
  CheckMarks<host::GpxWriter>(source, "<>\"\n\r");
  CheckMarks<host::KmlWriter>(source, "<>\"\n\r");
  CheckMarks<host::CsvWriter>(source, ",\"\n\r");
  Require(nlohmann::json::accept(Export<host::GeoJsonWriter>(source)));
}
