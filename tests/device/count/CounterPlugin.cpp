// Plugin for qemu's user-mode emulation, which looks at the instructions that are executed within a
// range of addresses. To standard error go:
//   - "counted <number> <instructions> <times>": executed between the marks that the emulated
//     program sets (Counter.h);
//   - "misaligned <place in the range> <address>": an access to a word or half-word that does not
//     lie at a multiple of its size. The emulator takes it; an ARMv4T processor reads something
//     else;
//   - "accesses <number>": those looked at, at the end.

#include <atomic>
#include <cstdio>

#include "Counter.h"

// The part of qemu's plugin interface, version 1, that is used. Debian ships no header of it.
extern "C" {
using qemu_plugin_id_t = std::uint64_t;
struct qemu_plugin_tb;
struct qemu_plugin_insn;
using qemu_plugin_meminfo_t = std::uint32_t;
enum qemu_plugin_cb_flags { QEMU_PLUGIN_CB_NO_REGS };
enum qemu_plugin_mem_rw { QEMU_PLUGIN_MEM_R = 1, QEMU_PLUGIN_MEM_W, QEMU_PLUGIN_MEM_RW };
unsigned qemu_plugin_mem_size_shift(qemu_plugin_meminfo_t access);
void qemu_plugin_register_vcpu_mem_cb(qemu_plugin_insn* instruction,
                                      void (*callback)(unsigned vcpu, qemu_plugin_meminfo_t access,
                                                       std::uint64_t address, void* data),
                                      qemu_plugin_cb_flags flags, qemu_plugin_mem_rw kinds,
                                      void* data);
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t id, void (*callback)(qemu_plugin_id_t, void*),
                                    void* data);
enum qemu_plugin_op { QEMU_PLUGIN_INLINE_ADD_U64 };
std::size_t qemu_plugin_tb_n_insns(const qemu_plugin_tb* block);
qemu_plugin_insn* qemu_plugin_tb_get_insn(const qemu_plugin_tb* block, std::size_t index);
std::uint64_t qemu_plugin_insn_vaddr(const qemu_plugin_insn* instruction);
void qemu_plugin_register_vcpu_insn_exec_inline(qemu_plugin_insn* instruction, qemu_plugin_op op,
                                                void* counter, std::uint64_t step);
void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id,
                                           void (*callback)(qemu_plugin_id_t, qemu_plugin_tb*));
void qemu_plugin_register_vcpu_syscall_cb(
    qemu_plugin_id_t id,
    void (*callback)(qemu_plugin_id_t, unsigned vcpu, std::int64_t number, std::uint64_t,
                     std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t,
                     std::uint64_t, std::uint64_t));
[[gnu::visibility("default")]] int qemu_plugin_version = 1;
}

namespace {

constexpr std::int64_t SCHED_YIELD = 158;

std::uint64_t rangeBegin = 0;
std::uint64_t rangeEnd = 0;
std::uint64_t executed = 0;
std::uint64_t executedBefore = 0;

std::atomic<std::uint64_t> accesses = 0;

void OnAccess(unsigned, qemu_plugin_meminfo_t access, std::uint64_t address, void* place) {
  ++accesses;
  if ((address & ((1U << qemu_plugin_mem_size_shift(access)) - 1)) != 0) {
    std::fprintf(stderr, "misaligned %llx %llx\n",
                 static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(place)),
                 static_cast<unsigned long long>(address));
  }
}

void OnExit(qemu_plugin_id_t, void*) {
  std::fprintf(stderr, "accesses %llu\n", static_cast<unsigned long long>(accesses.load()));
}

void OnTranslation(qemu_plugin_id_t, qemu_plugin_tb* block) {
  for (std::size_t index = 0; index < qemu_plugin_tb_n_insns(block); ++index) {
    qemu_plugin_insn* instruction = qemu_plugin_tb_get_insn(block, index);
    const std::uint64_t address = qemu_plugin_insn_vaddr(instruction);
    if (address >= rangeBegin && address < rangeEnd) {
      qemu_plugin_register_vcpu_insn_exec_inline(instruction, QEMU_PLUGIN_INLINE_ADD_U64, &executed,
                                                 1);
      qemu_plugin_register_vcpu_mem_cb(instruction, OnAccess, QEMU_PLUGIN_CB_NO_REGS,
                                       QEMU_PLUGIN_MEM_RW,
                                       reinterpret_cast<void*>(address - rangeBegin));
    }
  }
}

void OnSystemCall(qemu_plugin_id_t, unsigned, std::int64_t number, std::uint64_t mark,
                  std::uint64_t request, std::uint64_t first, std::uint64_t second, std::uint64_t,
                  std::uint64_t, std::uint64_t, std::uint64_t) {
  if (number != SCHED_YIELD || mark != counter::MARK) {
    return;
  }
  switch (request) {
    case counter::SET_RANGE:
      rangeBegin = first;
      rangeEnd = second;
      break;
    case counter::BEGIN:
      executedBefore = executed;
      break;
    case counter::END:
      std::fprintf(stderr, "counted %llu %llu %llu\n", static_cast<unsigned long long>(first),
                   static_cast<unsigned long long>(executed - executedBefore),
                   static_cast<unsigned long long>(second));
      break;
  }
}

}  // namespace

extern "C" [[gnu::visibility("default")]] int qemu_plugin_install(qemu_plugin_id_t id, const void*,
                                                                  int, char**) {
  qemu_plugin_register_vcpu_tb_trans_cb(id, OnTranslation);
  qemu_plugin_register_vcpu_syscall_cb(id, OnSystemCall);
  qemu_plugin_register_atexit_cb(id, OnExit, nullptr);
  return 0;
}
