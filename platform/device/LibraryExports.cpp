// The exports of a library: its export table points at Entry_<name>.

#include EXPORT_HEADER

#include "Entry.h"

#define EXPORT(name)                    \
  asm("ENTRY Entry_" #name ", " #name); \
  static_assert(IsEntryPossible(name), #name " cannot be called packed");
#include "ExportNames.inc"
#undef EXPORT
