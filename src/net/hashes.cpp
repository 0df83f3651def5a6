#include "hashes.h"
#include "sha256_p.h"

#include <algorithm>
#include <atomic>
#include <cstring>

namespace {

inline std::uint32_t rotl(std::uint32_t x, int n)
{
    return (x << n) | (x >> (32 - n));
}

inline std::uint32_t rotr(std::uint32_t x, int n)
{
    return (x >> n) | (x << (32 - n));
}

inline std::uint32_t loadBigEndian(const std::uint8_t* p)
{
    return (std::uint32_t(p[0]) << 24) | (std::uint32_t(p[1]) << 16) | (std::uint32_t(p[2]) << 8)
        | std::uint32_t(p[3]);
}

inline void storeBigEndian(std::uint8_t* p, std::uint32_t v)
{
    p[0] = std::uint8_t(v >> 24);
    p[1] = std::uint8_t(v >> 16);
    p[2] = std::uint8_t(v >> 8);
    p[3] = std::uint8_t(v);
}

std::string toHex(const unsigned char* bytes, int count)
{
    static const char digits[] = "0123456789abcdef";
    std::string out;
    out.reserve(std::size_t(count) * 2);
    for (int i = 0; i < count; ++i) {
        out += digits[bytes[i] >> 4];
        out += digits[bytes[i] & 0x0f];
    }
    return out;
}

/*
 * Appends data to a running block buffer and hands full blocks to process,
 * as many at a time as the input holds. Shared by both digests, which differ
 * only in the block function.
 */
template<typename Process>
void feed(const void* data, unsigned long size, std::uint8_t* buffer, std::size_t& bufferSize,
          std::uint64_t& numBytes, Process process)
{
    if (!data || size == 0)
        return;
    auto current = static_cast<const std::uint8_t*>(data);
    numBytes += size;

    if (bufferSize > 0) {
        const std::size_t take = std::min<unsigned long>(size, 64 - bufferSize);
        std::memcpy(buffer + bufferSize, current, take);
        bufferSize += take;
        current += take;
        size -= take;
        if (bufferSize < 64)
            return;
        process(buffer, 1);
        bufferSize = 0;
    }
    if (size >= 64) {
        const std::size_t blocks = size / 64;
        process(current, blocks);
        current += blocks * 64;
        size -= blocks * 64;
    }
    std::memcpy(buffer, current, size);
    bufferSize = size;
}

/*
 * Pads a copy of the partial block, so that the buffered bytes survive for
 * further add() calls after a mid-stream getHash().
 */
template<typename Process>
void finish(const std::uint8_t* buffer, std::size_t bufferSize, std::uint64_t numBytes,
            Process process)
{
    std::uint8_t tail[128] = {};
    std::memcpy(tail, buffer, bufferSize);
    tail[bufferSize] = 0x80;
    const std::size_t blocks = bufferSize < 56 ? 1 : 2;
    const std::uint64_t bits = numBytes * 8;
    std::uint8_t* length = tail + blocks * 64 - 8;
    storeBigEndian(length, std::uint32_t(bits >> 32));
    storeBigEndian(length + 4, std::uint32_t(bits));
    process(tail, blocks);
}

} // namespace

// clang-format off
const std::uint32_t Bedrock::sha256RoundConstants[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2
};
// clang-format on

namespace {

/*
 * What both digests do the same way around their block function: the digest
 * read mid-stream (padding a copy of the state, which is put back so the
 * stream carries on), its hex form, and the one-shot call.
 */
template<typename Finish>
void digestMidStream(unsigned char* out, std::uint32_t* hash, int words, Finish finishBuffer)
{
    if (!out)
        return;
    std::uint32_t saved[8];
    std::memcpy(saved, hash, sizeof(std::uint32_t) * size_t(words));
    finishBuffer();
    for (int i = 0; i < words; ++i)
        storeBigEndian(out + 4 * i, hash[i]);
    std::memcpy(hash, saved, sizeof(std::uint32_t) * size_t(words));
}

template<typename Digest> std::string hexDigest(Digest& digest)
{
    unsigned char raw[Digest::HashBytes];
    digest.getHash(raw);
    return toHex(raw, Digest::HashBytes);
}

template<typename Digest> std::string digestOf(Digest& digest, void const* data, unsigned long size)
{
    digest.reset();
    digest.add(data, size);
    return hexDigest(digest);
}

Bedrock::Sha256Compress chooseCompress(bool shaExtensions)
{
    return shaExtensions && Bedrock::sha256CompressShaExtensions
            && Bedrock::sha256ShaExtensionsAvailable()
        ? Bedrock::sha256CompressShaExtensions
        : Bedrock::sha256CompressPortable;
}

// The kernel every SHA256 object uses, picked once from what the CPU offers.
std::atomic<Bedrock::Sha256Compress>& activeCompress()
{
    static std::atomic<Bedrock::Sha256Compress> active { chooseCompress(true) };
    return active;
}

} // namespace

void Bedrock::sha256CompressPortable(std::uint32_t state[8], const std::uint8_t* blocks,
                                     std::size_t count)
{
    for (; count > 0; --count, blocks += 64) {
        std::uint32_t w[64];
        for (int i = 0; i < 16; ++i)
            w[i] = loadBigEndian(blocks + 4 * i);
        for (int i = 16; i < 64; ++i) {
            const std::uint32_t s0 = rotr(w[i - 15], 7) ^ rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
            const std::uint32_t s1 = rotr(w[i - 2], 17) ^ rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
            w[i] = w[i - 16] + s0 + w[i - 7] + s1;
        }

        std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
        std::uint32_t e = state[4], f = state[5], g = state[6], h = state[7];
        for (int i = 0; i < 64; ++i) {
            const std::uint32_t s1 = rotr(e, 6) ^ rotr(e, 11) ^ rotr(e, 25);
            const std::uint32_t ch = (e & f) ^ (~e & g);
            const std::uint32_t t1 = h + s1 + ch + sha256RoundConstants[i] + w[i];
            const std::uint32_t s0 = rotr(a, 2) ^ rotr(a, 13) ^ rotr(a, 22);
            const std::uint32_t maj = (a & b) ^ (a & c) ^ (b & c);
            const std::uint32_t t2 = s0 + maj;
            h = g;
            g = f;
            f = e;
            e = d + t1;
            d = c;
            c = b;
            b = a;
            a = t1 + t2;
        }
        state[0] += a;
        state[1] += b;
        state[2] += c;
        state[3] += d;
        state[4] += e;
        state[5] += f;
        state[6] += g;
        state[7] += h;
    }
}

bool Bedrock::sha256UseShaExtensions(bool use)
{
    const Sha256Compress chosen = chooseCompress(use);
    activeCompress().store(chosen, std::memory_order_relaxed);
    return chosen != sha256CompressPortable;
}

// ---------------------------------------------------------------------------- SHA1

namespace {

// The SHA-1 compression function over `count` consecutive 64-byte blocks.
void sha1Compress(std::uint32_t state[5], const std::uint8_t* blocks, std::size_t count)
{
    for (; count > 0; --count, blocks += 64) {
        std::uint32_t w[80];
        for (int i = 0; i < 16; ++i)
            w[i] = loadBigEndian(blocks + 4 * i);
        for (int i = 16; i < 80; ++i)
            w[i] = rotl(w[i - 3] ^ w[i - 8] ^ w[i - 14] ^ w[i - 16], 1);

        std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3], e = state[4];
        for (int i = 0; i < 80; ++i) {
            std::uint32_t f, k;
            if (i < 20) {
                f = (b & c) | (~b & d);
                k = 0x5a827999;
            } else if (i < 40) {
                f = b ^ c ^ d;
                k = 0x6ed9eba1;
            } else if (i < 60) {
                f = (b & c) | (b & d) | (c & d);
                k = 0x8f1bbcdc;
            } else {
                f = b ^ c ^ d;
                k = 0xca62c1d6;
            }
            const std::uint32_t t = rotl(a, 5) + f + e + k + w[i];
            e = d;
            d = c;
            c = rotl(b, 30);
            b = a;
            a = t;
        }
        state[0] += a;
        state[1] += b;
        state[2] += c;
        state[3] += d;
        state[4] += e;
    }
}

} // namespace

SHA1::SHA1()
{
    reset();
}

void SHA1::reset()
{
    m_numBytes = 0;
    m_bufferSize = 0;
    std::memset(m_buffer, 0, sizeof m_buffer);
    m_hash[0] = 0x67452301;
    m_hash[1] = 0xefcdab89;
    m_hash[2] = 0x98badcfe;
    m_hash[3] = 0x10325476;
    m_hash[4] = 0xc3d2e1f0;
}

void SHA1::processBlock(void const* data)
{
    sha1Compress(m_hash, static_cast<const std::uint8_t*>(data), 1);
}

void SHA1::processBuffer()
{
    finish(m_buffer, m_bufferSize, m_numBytes,
           [this](const std::uint8_t* b, std::size_t count) { sha1Compress(m_hash, b, count); });
}

void SHA1::add(void const* data, unsigned long size)
{
    feed(data, size, m_buffer, m_bufferSize, m_numBytes,
         [this](const std::uint8_t* b, std::size_t count) { sha1Compress(m_hash, b, count); });
}

void SHA1::getHash(unsigned char* out)
{
    digestMidStream(out, m_hash, HashBytes / 4, [this] { processBuffer(); });
}

std::string SHA1::getHash()
{
    return hexDigest(*this);
}

std::string SHA1::operator()(void const* data, unsigned long size)
{
    return digestOf(*this, data, size);
}

std::string SHA1::operator()(std::string const& text)
{
    return (*this)(text.data(), text.size());
}

// ---------------------------------------------------------------------------- SHA256

SHA256::SHA256()
{
    reset();
}

void SHA256::reset()
{
    m_numBytes = 0;
    m_bufferSize = 0;
    std::memset(m_buffer, 0, sizeof m_buffer);
    m_hash[0] = 0x6a09e667;
    m_hash[1] = 0xbb67ae85;
    m_hash[2] = 0x3c6ef372;
    m_hash[3] = 0xa54ff53a;
    m_hash[4] = 0x510e527f;
    m_hash[5] = 0x9b05688c;
    m_hash[6] = 0x1f83d9ab;
    m_hash[7] = 0x5be0cd19;
}

void SHA256::processBlock(void const* data)
{
    activeCompress().load(std::memory_order_relaxed)(m_hash, static_cast<const std::uint8_t*>(data),
                                                     1);
}

void SHA256::processBuffer()
{
    const Bedrock::Sha256Compress compress = activeCompress().load(std::memory_order_relaxed);
    finish(
        m_buffer, m_bufferSize, m_numBytes,
        [this, compress](const std::uint8_t* b, std::size_t count) { compress(m_hash, b, count); });
}

void SHA256::add(void const* data, unsigned long size)
{
    const Bedrock::Sha256Compress compress = activeCompress().load(std::memory_order_relaxed);
    feed(
        data, size, m_buffer, m_bufferSize, m_numBytes,
        [this, compress](const std::uint8_t* b, std::size_t count) { compress(m_hash, b, count); });
}

void SHA256::getHash(unsigned char* out)
{
    digestMidStream(out, m_hash, HashBytes / 4, [this] { processBuffer(); });
}

std::string SHA256::getHash()
{
    return hexDigest(*this);
}

std::string SHA256::operator()(void const* data, unsigned long size)
{
    return digestOf(*this, data, size);
}

std::string SHA256::operator()(std::string const& text)
{
    return (*this)(text.data(), text.size());
}
