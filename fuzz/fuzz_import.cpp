// Any bytes as a tagged file: the reader, the handlers and the closing pass must take them, with findings or
// refusals and nothing worse.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz_data_set.h"
#include "import/tagged_import.h"
#include "testkit/outside.h"

namespace {

// Of 1,024 inputs one meets a new DataSet, which costs a hundred times more. Decided by the bytes, so that a
// case runs the same way again.
bool TakesNewDataSet(std::string_view bytes) {
    std::uint32_t sum = 0;
    for (const char byte : bytes) sum = sum * 31 + static_cast<unsigned char>(byte);
    return sum % 1024 == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quillon::fuzz::FuzzDataSet set;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    set.Reset(!TakesNewDataSet(bytes));
    set.state.gBatchCancel = false;
    set.state.currentTaxon = {};
    quillon::importing::MemorySource source(bytes);
    quillon::testkit::NullPump events;
    quillon::importing::TaggedImport import(set.state, set.engine, set.prompter, events, [](double) {});
    try {
        import.ReadTaggedFile(source, [](const quillon::importing::Finding&){});
    } catch (const quillon::store::StoreError&) {
        // Nothing more can be stored: the user gets this message as it is.
    }
    return 0;
}
