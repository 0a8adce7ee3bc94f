// An open file.
#pragma once

#include "core/Descriptor.h"
#include "core/Handles.h"
#include "files/FileShares.h"

namespace handheld {

/// Keeps its claim on the file until the handle is closed.
class DiskFile : public Stream {
 public:
  /// `wantedAccess` and `wantedShareMode` are those of the claim that the caller has made.
  DiskFile(Descriptor opened, FileShares::FileId fileId, DWORD wantedAccess, DWORD wantedShareMode);

  void HandleClosed() override;
  DWORD Read(void* buffer, DWORD size, DWORD& count) override;
  DWORD Write(const void* data, DWORD size, DWORD& count) override;
  DWORD Flush() override;

 private:
  const Descriptor descriptor;
  const FileShares::FileId id;
  const DWORD access;
  const DWORD shareMode;
};

}  // namespace handheld
