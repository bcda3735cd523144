// A plugin for qemu's user-mode emulators: instructions executed within marked regions (see mark_region.h).
//
//     qemu-arm -plugin region_counter.so,out=FILE[,addresses=on] PROGRAM...
//
// FILE receives "region N" for each region; with addresses=on also "address HEX N" for each instruction that
// was executed in any of them. Debian's qemu has plugins but no header for them: the declarations are those
// of interface version 1.
#include <inttypes.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "benchmarks/decoder/count/region_mark.h"

struct qemu_plugin_tb;
struct qemu_plugin_insn;
typedef uint64_t PluginId;
struct PluginTarget {
    const char* name;  // what follows is of no interest here
};
enum { kInlineAdd = 0 };

typedef void (*TranslatedCallback)(PluginId, struct qemu_plugin_tb*);
typedef void (*SystemCallCallback)(PluginId, unsigned cpu, int64_t number, uint64_t a1, uint64_t a2,
                                   uint64_t a3, uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7,
                                   uint64_t a8);
typedef void (*ExitCallback)(PluginId, void*);

void qemu_plugin_register_vcpu_tb_trans_cb(PluginId, TranslatedCallback);
void qemu_plugin_register_vcpu_syscall_cb(PluginId, SystemCallCallback);
void qemu_plugin_register_atexit_cb(PluginId, ExitCallback, void*);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb*, int operation, void* counter,
                                              uint64_t amount);
void qemu_plugin_register_vcpu_insn_exec_inline(struct qemu_plugin_insn*, int operation, void* counter,
                                                uint64_t amount);
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb*);
struct qemu_plugin_insn* qemu_plugin_tb_get_insn(const struct qemu_plugin_tb*, size_t index);
uint64_t qemu_plugin_insn_vaddr(const struct qemu_plugin_insn*);

__attribute__((visibility("default"))) int qemu_plugin_version = 1;
__attribute__((visibility("default"))) int qemu_plugin_install(PluginId, const struct PluginTarget*, int,
                                                               char**);

// One instruction. The translated code holds pointers to `executed`, and an instruction may be translated
// again.
typedef struct Place {
    struct Place* next;
    uint64_t address;
    uint64_t executed;
    uint64_t inRegions;  // modulo 2^64 while a region is open
} Place;

enum { kBuckets = 1 << 14 };
static Place* g_places[kBuckets];
static bool g_byAddress;
static uint64_t g_executed, g_atBegin;
static int64_t g_getPriority;
static FILE* g_out;

static Place* PlaceOf(uint64_t address) {
    Place** const bucket = &g_places[(address >> 1) % kBuckets];
    for (Place* place = *bucket; place != NULL; place = place->next)
        if (place->address == address) return place;
    Place* const place = calloc(1, sizeof *place);
    if (place == NULL) abort();
    place->address = address;
    place->next = *bucket;
    *bucket = place;
    return place;
}

static void OnTranslated(PluginId id, struct qemu_plugin_tb* block) {
    (void)id;
    const size_t count = qemu_plugin_tb_n_insns(block);
    qemu_plugin_register_vcpu_tb_exec_inline(block, kInlineAdd, &g_executed, count);
    for (size_t i = 0; g_byAddress && i < count; ++i) {
        struct qemu_plugin_insn* const instruction = qemu_plugin_tb_get_insn(block, i);
        Place* const place = PlaceOf(qemu_plugin_insn_vaddr(instruction));
        qemu_plugin_register_vcpu_insn_exec_inline(instruction, kInlineAdd, &place->executed, 1);
    }
}

static void AddToRegions(int sign) {
    for (size_t i = 0; i < kBuckets; ++i)
        for (Place* place = g_places[i]; place != NULL; place = place->next)
            place->inRegions += sign > 0 ? place->executed : -place->executed;
}

static void OnSystemCall(PluginId id, unsigned cpu, int64_t number, uint64_t which, uint64_t mark,
                         uint64_t a3, uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7, uint64_t a8) {
    (void)id, (void)cpu, (void)a3, (void)a4, (void)a5, (void)a6, (void)a7, (void)a8;
    if (number != g_getPriority || (uint32_t)which != kRegionMark) return;
    if (mark == kRegionBegins) {
        AddToRegions(-1);
        g_atBegin = g_executed;
    } else {
        fprintf(g_out, "region %" PRIu64 "\n", g_executed - g_atBegin);
        AddToRegions(1);
    }
}

static void OnExit(PluginId id, void* unused) {
    (void)id, (void)unused;
    for (size_t i = 0; i < kBuckets; ++i)
        for (Place* place = g_places[i]; place != NULL; place = place->next)
            if (place->inRegions != 0)
                fprintf(g_out, "address %" PRIx64 " %" PRIu64 "\n", place->address, place->inRegions);
    fclose(g_out);
}

int qemu_plugin_install(PluginId id, const struct PluginTarget* target, int count, char** options) {
    for (int i = 0; i < count; ++i) {
        if (strncmp(options[i], "out=", 4) == 0) g_out = fopen(options[i] + 4, "w");
        g_byAddress |= strcmp(options[i], "addresses=on") == 0;
    }
    g_getPriority = strcmp(target->name, "x86_64") == 0 ? 140 : 96;
    if (g_out == NULL) return 1;
    qemu_plugin_register_vcpu_tb_trans_cb(id, OnTranslated);
    qemu_plugin_register_vcpu_syscall_cb(id, OnSystemCall);
    qemu_plugin_register_atexit_cb(id, OnExit, NULL);
    return 0;
}
