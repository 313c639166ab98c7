// One fuzzer: libFuzzer calls the target that the program was built for. A broken property ends it
// as an uncaught exception, which counts as a finding.
#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

namespace {

constexpr const mdlPLM::fuzz::Target& Chosen() {
    for (const mdlPLM::fuzz::Target& target : mdlPLM::fuzz::Targets)
        if (target.Name == PLM_FUZZ_TARGET) return target;
    throw "no target of that name";  // the build fails
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const mdlPLM::fuzz::Target& target = Chosen();
    target.Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
