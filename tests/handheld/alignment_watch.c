// A plugin for qemu-arm, which itself lets every misaligned access pass: the handheld's processor refuses it.
//
//     qemu-arm -plugin alignment_watch.so,from=HEX,to=HEX PROGRAM...
//
// Sends the program a bus error, with the address as its value, when an instruction between `from` and `to`
// reads or writes a half word or a word that is not aligned. Debian's qemu has plugins but no header for
// them: the declarations are those of interface version 1.
#include <signal.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

struct qemu_plugin_tb;
struct qemu_plugin_insn;
typedef uint64_t PluginId;
typedef uint32_t MemoryInfo;
enum { kNoRegisters = 0, kReadsAndWrites = 3 };

typedef void (*TranslatedCallback)(PluginId, struct qemu_plugin_tb*);
typedef void (*MemoryCallback)(unsigned cpu, MemoryInfo, uint64_t address, void* data);

void qemu_plugin_register_vcpu_tb_trans_cb(PluginId, TranslatedCallback);
void qemu_plugin_register_vcpu_mem_cb(struct qemu_plugin_insn*, MemoryCallback, int flags, int kind,
                                      void* data);
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb*);
struct qemu_plugin_insn* qemu_plugin_tb_get_insn(const struct qemu_plugin_tb*, size_t index);
uint64_t qemu_plugin_insn_vaddr(const struct qemu_plugin_insn*);
unsigned qemu_plugin_mem_size_shift(MemoryInfo);

__attribute__((visibility("default"))) int qemu_plugin_version = 1;
__attribute__((visibility("default"))) int qemu_plugin_install(PluginId, const void*, int, char**);

static uint64_t g_from, g_to;

static void OnAccess(unsigned cpu, MemoryInfo info, uint64_t address, void* data) {
    (void)cpu, (void)data;
    const uint64_t rest = (1u << qemu_plugin_mem_size_shift(info)) - 1;
    if ((address & rest) == 0) return;
    sigqueue(getpid(), SIGBUS, (union sigval){.sival_ptr = (void*)(uintptr_t)address});
}

static void OnTranslated(PluginId id, struct qemu_plugin_tb* block) {
    (void)id;
    for (size_t i = 0; i < qemu_plugin_tb_n_insns(block); ++i) {
        struct qemu_plugin_insn* const instruction = qemu_plugin_tb_get_insn(block, i);
        const uint64_t at = qemu_plugin_insn_vaddr(instruction);
        if (at >= g_from && at < g_to)
            qemu_plugin_register_vcpu_mem_cb(instruction, OnAccess, kNoRegisters, kReadsAndWrites, NULL);
    }
}

int qemu_plugin_install(PluginId id, const void* target, int count, char** options) {
    (void)target;
    for (int i = 0; i < count; ++i) {
        if (strncmp(options[i], "from=", 5) == 0) g_from = strtoull(options[i] + 5, NULL, 16);
        if (strncmp(options[i], "to=", 3) == 0) g_to = strtoull(options[i] + 3, NULL, 16);
    }
    if (g_from >= g_to) return 1;
    qemu_plugin_register_vcpu_tb_trans_cb(id, OnTranslated);
    return 0;
}
