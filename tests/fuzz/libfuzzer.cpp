// SPDX-License-Identifier: MIT
// Connects libFuzzer to the target named in the environment.
#include "fuzz/fuzz.h"

#include <cstdint>
#include <cstdlib>

namespace {

FuzzTarget chosen = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    chosen = preparedTarget(qgetenv("VEMO_FUZZ_TARGET"));
    if (!chosen) {
        std::fprintf(
            stderr, "VEMO_FUZZ_TARGET must be one of: %s\n", targetNames().join(' ').constData());
        std::exit(2);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    chosen(QByteArray(reinterpret_cast<const char *>(bytes), int(size)));
    return 0;
}
