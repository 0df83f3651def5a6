// Arbitrary text through the Base64 decoder (into exactly the room it asks
// for, with guard bytes after it) and the URL decoder and encoder.
#include "encodings.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const int room = Base64decode_len(text.c_str());
    if (room < 0)
        __builtin_trap();
    std::vector<char> out(size_t(room) + 16, '\x5a');
    const int written = Base64decode(out.data(), text.c_str());
    if (written < 0 || written > room)
        __builtin_trap();
    for (size_t i = size_t(room); i < out.size(); ++i) {
        if (out[i] != '\x5a')
            __builtin_trap(); // written beyond the room it asked for
    }
    const std::string decoded = urlDecode(text);
    urlEncode(decoded);
    return 0;
}
