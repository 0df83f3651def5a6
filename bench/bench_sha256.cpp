// SHA-256 on 16 KiB buffers: the library's digest (with the kernel the process
// picks, and with the portable kernel forced) against OpenSSL's (the baseline).
#include "hashes.h"
#include "sha256_p.h"

#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include <vector>

namespace {

std::vector<unsigned char> buffer()
{
    std::vector<unsigned char> data(16 * 1024);
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<unsigned char>(i * 131 + 7);
    return data;
}

void BM_OpenSslSha256(benchmark::State& state)
{
    const auto data = buffer();
    unsigned char digest[32];
    unsigned int length = 0;
    for (auto _ : state) {
        EVP_Digest(data.data(), data.size(), digest, &length, EVP_sha256(), nullptr);
        benchmark::DoNotOptimize(digest);
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t(data.size()));
}

void librarySha256(benchmark::State& state, bool shaExtensions)
{
    const bool used = Bedrock::sha256UseShaExtensions(shaExtensions);
    if (shaExtensions && !used) {
        state.SkipWithError("no SHA extensions on this processor");
        return;
    }
    const auto data = buffer();
    unsigned char digest[32];
    SHA256 h;
    for (auto _ : state) {
        h.reset();
        h.add(data.data(), data.size());
        h.getHash(digest);
        benchmark::DoNotOptimize(digest);
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t(data.size()));
    Bedrock::sha256UseShaExtensions(true);
}

void BM_LibrarySha256(benchmark::State& state)
{
    librarySha256(state, true);
}

void BM_LibrarySha256Portable(benchmark::State& state)
{
    librarySha256(state, false);
}

} // namespace

BENCHMARK(BM_OpenSslSha256);
BENCHMARK(BM_LibrarySha256);
BENCHMARK(BM_LibrarySha256Portable);
