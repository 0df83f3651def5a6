// SHA-256 block functions and the choice between them. Internal.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Bedrock {

// Runs `count` consecutive 64-byte blocks through the compression function.
using Sha256Compress
    = void (*)(std::uint32_t state[8], const std::uint8_t* blocks, std::size_t count);

extern const std::uint32_t sha256RoundConstants[64];

void sha256CompressPortable(std::uint32_t state[8], const std::uint8_t* blocks, std::size_t count);

// The x86 SHA extensions kernel; null where the build target has none.
extern const Sha256Compress sha256CompressShaExtensions;

// True when this processor can run the SHA extensions kernel.
bool sha256ShaExtensionsAvailable();

// Selects the kernel for every SHA256 object in the process. Asking for the
// extensions where they are missing keeps the portable code. Returns whether
// the extensions are in use afterwards. Meant for tests and benchmarks.
bool sha256UseShaExtensions(bool use);

} // namespace Bedrock
