#include "sha256_p.h"

#if defined(__x86_64__) || defined(__i386__)

#include <cpuid.h>
#include <immintrin.h>

/*
 * SHA-256 on the x86 SHA extensions. The state is kept in the two-register
 * ABEF/CDGH layout that sha256rnds2 works on; each sha256rnds2 does two
 * rounds, so a group of four message words takes two of them. The message
 * schedule (sha256msg1/msg2) runs alongside the rounds it feeds.
 *
 * Compiled for the extensions per function, so the rest of the library keeps
 * the baseline instruction set; it is only reached after the CPU check.
 */
#define BEDROCK_SHA_TARGET __attribute__((target("sha,sse4.1,ssse3")))

namespace {

BEDROCK_SHA_TARGET inline void fourRounds(__m128i& abef, __m128i& cdgh, __m128i words, int group)
{
    const __m128i k = _mm_loadu_si128(
        reinterpret_cast<const __m128i*>(Bedrock::sha256RoundConstants + 4 * group));
    __m128i msg = _mm_add_epi32(words, k);
    cdgh = _mm_sha256rnds2_epu32(cdgh, abef, msg);
    msg = _mm_shuffle_epi32(msg, 0x0e);
    abef = _mm_sha256rnds2_epu32(abef, cdgh, msg);
}

// W[4g..4g+3] from the four groups before it, oldest first.
BEDROCK_SHA_TARGET inline __m128i nextWords(__m128i w4, __m128i w3, __m128i w2, __m128i w1)
{
    __m128i t = _mm_sha256msg1_epu32(w4, w3);
    t = _mm_add_epi32(t, _mm_alignr_epi8(w1, w2, 4));
    return _mm_sha256msg2_epu32(t, w1);
}

BEDROCK_SHA_TARGET inline __m128i loadWords(const std::uint8_t* block, int i, __m128i byteSwap)
{
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(block + 16 * i)),
                            byteSwap);
}

BEDROCK_SHA_TARGET void compressShaExtensions(std::uint32_t state[8], const std::uint8_t* blocks,
                                              std::size_t count)
{
    const __m128i byteSwap = _mm_set_epi64x(0x0c0d0e0f08090a0bULL, 0x0405060700010203ULL);

    __m128i abcd = _mm_loadu_si128(reinterpret_cast<const __m128i*>(state));
    __m128i efgh = _mm_loadu_si128(reinterpret_cast<const __m128i*>(state + 4));
    abcd = _mm_shuffle_epi32(abcd, 0xb1); // CDAB
    efgh = _mm_shuffle_epi32(efgh, 0x1b); // HGFE
    __m128i abef = _mm_alignr_epi8(abcd, efgh, 8); // ABEF
    __m128i cdgh = _mm_blend_epi16(efgh, abcd, 0xf0); // CDGH

    for (; count > 0; --count, blocks += 64) {
        const __m128i abefStart = abef;
        const __m128i cdghStart = cdgh;

        __m128i w0 = loadWords(blocks, 0, byteSwap), w1 = loadWords(blocks, 1, byteSwap);
        __m128i w2 = loadWords(blocks, 2, byteSwap), w3 = loadWords(blocks, 3, byteSwap);
        fourRounds(abef, cdgh, w0, 0);
        fourRounds(abef, cdgh, w1, 1);
        fourRounds(abef, cdgh, w2, 2);
        fourRounds(abef, cdgh, w3, 3);
        // Twelve more groups; the four live words rotate through w0..w3.
        for (int group = 4; group < 16; group += 4) {
            w0 = nextWords(w0, w1, w2, w3);
            fourRounds(abef, cdgh, w0, group);
            w1 = nextWords(w1, w2, w3, w0);
            fourRounds(abef, cdgh, w1, group + 1);
            w2 = nextWords(w2, w3, w0, w1);
            fourRounds(abef, cdgh, w2, group + 2);
            w3 = nextWords(w3, w0, w1, w2);
            fourRounds(abef, cdgh, w3, group + 3);
        }

        abef = _mm_add_epi32(abef, abefStart);
        cdgh = _mm_add_epi32(cdgh, cdghStart);
    }

    const __m128i feba = _mm_shuffle_epi32(abef, 0x1b);
    const __m128i dchg = _mm_shuffle_epi32(cdgh, 0xb1);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state), _mm_blend_epi16(feba, dchg, 0xf0));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state + 4), _mm_alignr_epi8(dchg, feba, 8));
}

} // namespace

const Bedrock::Sha256Compress Bedrock::sha256CompressShaExtensions = compressShaExtensions;

// Asked of CPUID directly: not every compiler knows "sha" as a feature name.
bool Bedrock::sha256ShaExtensionsAvailable()
{
    unsigned int eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (!__get_cpuid(1, &eax, &ebx, &ecx, &edx))
        return false;
    const bool ssse3 = ecx & (1u << 9);
    const bool sse41 = ecx & (1u << 19);
    if (!__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx))
        return false;
    const bool sha = ebx & (1u << 29);
    return sha && ssse3 && sse41;
}

#else

const Bedrock::Sha256Compress Bedrock::sha256CompressShaExtensions = nullptr;

bool Bedrock::sha256ShaExtensionsAvailable()
{
    return false;
}

#endif
