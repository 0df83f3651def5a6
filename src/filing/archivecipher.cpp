#include "archivecipher_p.h"

#include "logging_p.h"

#include <sodium.h>

#include <QIODevice>
#include <QPointer>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <map>
#include <mutex>
#include <vector>

namespace Bedrock {
namespace ArchiveCipher {
namespace {

constexpr unsigned char Header[HeaderBytes] = { 'B', 'R', 'K', 1 };
constexpr int KeyBytes = crypto_aead_xchacha20poly1305_ietf_KEYBYTES;
// A return of hundreds of records from many files must not hold every key it
// ever met; a handful covers one process's own salt and a few opened files.
constexpr size_t MaxCachedKeys = 16;

static_assert(SaltBytes == crypto_pwhash_SALTBYTES, "salt size");
static_assert(NonceBytes == crypto_aead_xchacha20poly1305_ietf_NPUBBYTES, "nonce size");
static_assert(TagBytes == crypto_aead_xchacha20poly1305_ietf_ABYTES, "tag size");

using Key = std::array<unsigned char, KeyBytes>;
using CacheId = std::array<unsigned char, crypto_generichash_BYTES>;
using Salt = std::array<unsigned char, SaltBytes>;

// The distinct salts met on one device being loaded. The device is watched, so
// an entry whose device is gone is dropped, and a new device at the same
// address starts afresh.
struct DeviceSalts {
    QPointer<QIODevice> device;
    std::vector<Salt> salts;
};

struct State {
    std::mutex mutex; // derivation may be asked from more than one thread
    bool ready = false;
    bool fast = false;
    int derivations = 0;
    unsigned char processSalt[SaltBytes];
    // The cache is keyed by a hash of (salt, key text) under a secret of this
    // process, so neither the key text nor anything that tests it stays in memory.
    unsigned char cacheSecret[crypto_generichash_KEYBYTES];
    std::map<CacheId, Key> keys;
    std::vector<DeviceSalts> devices;

    ~State()
    {
        for (auto& entry : keys)
            sodium_memzero(entry.second.data(), entry.second.size());
        sodium_memzero(cacheSecret, sizeof cacheSecret);
    }
};

State& state()
{
    static State s;
    return s;
}

// Call with the mutex held.
bool ensureReady(State& s)
{
    if (s.ready)
        return true;
    if (sodium_init() < 0) {
        qCWarning(lcBedrockFiling) << "the cipher library could not start";
        return false;
    }
    randombytes_buf(s.processSalt, sizeof s.processSalt);
    randombytes_buf(s.cacheSecret, sizeof s.cacheSecret);
    s.ready = true;
    return true;
}

// Call with the mutex held.
bool deriveKey(State& s, const std::string& keyText, const unsigned char* salt, Key& key)
{
    CacheId id;
    crypto_generichash_state h;
    crypto_generichash_init(&h, s.cacheSecret, sizeof s.cacheSecret, id.size());
    const unsigned char mode = s.fast ? 1 : 0;
    crypto_generichash_update(&h, &mode, 1);
    crypto_generichash_update(&h, salt, SaltBytes);
    crypto_generichash_update(&h, reinterpret_cast<const unsigned char*>(keyText.data()),
                              keyText.size());
    crypto_generichash_final(&h, id.data(), id.size());

    const auto cached = s.keys.find(id);
    if (cached != s.keys.end()) {
        key = cached->second;
        return true;
    }

    if (s.fast) {
        crypto_generichash(key.data(), key.size(),
                           reinterpret_cast<const unsigned char*>(keyText.data()), keyText.size(),
                           salt, SaltBytes);
    } else {
        // The key text may be a person's password: a memory-hard derivation.
        if (crypto_pwhash(key.data(), key.size(), keyText.data(), keyText.size(), salt,
                          crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE,
                          crypto_pwhash_ALG_ARGON2ID13)
            != 0) {
            qCWarning(lcBedrockFiling) << "key derivation ran out of memory";
            return false;
        }
        ++s.derivations;
    }
    if (s.keys.size() >= MaxCachedKeys) {
        for (auto& entry : s.keys)
            sodium_memzero(entry.second.data(), entry.second.size());
        s.keys.clear();
    }
    s.keys.emplace(id, key);
    return true;
}

// Call with the mutex held. True when `salt` may be derived for a block read
// from `device`: one already met there, or a new one within the bound.
bool admitSalt(State& s, const QIODevice* device, const unsigned char* salt)
{
    s.devices.erase(std::remove_if(s.devices.begin(), s.devices.end(),
                                   [](const DeviceSalts& d) { return d.device.isNull(); }),
                    s.devices.end());
    auto entry = std::find_if(s.devices.begin(), s.devices.end(),
                              [device](const DeviceSalts& d) { return d.device == device; });
    if (entry == s.devices.end()) {
        s.devices.push_back({ QPointer<QIODevice>(const_cast<QIODevice*>(device)), {} });
        entry = s.devices.end() - 1;
    }
    Salt wanted;
    std::memcpy(wanted.data(), salt, SaltBytes);
    if (std::find(entry->salts.begin(), entry->salts.end(), wanted) != entry->salts.end())
        return true;
    if (entry->salts.size() >= size_t(MaxSaltsPerDevice))
        return false;
    entry->salts.push_back(wanted);
    return true;
}

} // namespace

QByteArray seal(const std::string& keyText, const char* plain, int length)
{
    if (length < 0 || (length > 0 && !plain))
        return QByteArray();
    State& s = state();
    Key key;
    unsigned char salt[SaltBytes];
    {
        std::lock_guard<std::mutex> lock(s.mutex);
        if (!ensureReady(s))
            return QByteArray();
        // One salt for all the stores of a process: one derivation per key on save.
        std::memcpy(salt, s.processSalt, SaltBytes);
        if (!deriveKey(s, keyText, salt, key))
            return QByteArray();
    }

    QByteArray envelope(OverheadBytes + length, Qt::Uninitialized);
    auto* out = reinterpret_cast<unsigned char*>(envelope.data());
    std::memcpy(out, Header, HeaderBytes);
    std::memcpy(out + HeaderBytes, salt, SaltBytes);
    unsigned char* nonce = out + HeaderBytes + SaltBytes;
    randombytes_buf(nonce, NonceBytes);
    unsigned long long written = 0;
    crypto_aead_xchacha20poly1305_ietf_encrypt(nonce + NonceBytes, &written,
                                               reinterpret_cast<const unsigned char*>(plain),
                                               static_cast<unsigned long long>(length), out,
                                               HeaderBytes + SaltBytes, nullptr, nonce, key.data());
    sodium_memzero(key.data(), key.size());
    return envelope;
}

bool open(const std::string& keyText, const char* envelope, int length, QByteArray& plain,
          const QIODevice* source)
{
    plain.clear();
    if (!envelope || length < OverheadBytes) {
        qCInfo(lcBedrockFiling) << "enciphered block too short:" << length << "bytes";
        return false;
    }
    const auto* in = reinterpret_cast<const unsigned char*>(envelope);
    if (std::memcmp(in, Header, HeaderBytes) != 0) {
        qCInfo(lcBedrockFiling) << "enciphered block of an unknown scheme";
        return false;
    }
    const unsigned char* salt = in + HeaderBytes;
    const unsigned char* nonce = salt + SaltBytes;
    const unsigned char* cipher = nonce + NonceBytes;
    const int cipherLength = length - HeaderBytes - SaltBytes - NonceBytes;

    State& s = state();
    Key key;
    {
        std::lock_guard<std::mutex> lock(s.mutex);
        if (!ensureReady(s))
            return false;
        if (source && !admitSalt(s, source, salt)) {
            qCInfo(lcBedrockFiling) << "enciphered block refused: more than" << MaxSaltsPerDevice
                                    << "key salts in one file";
            return false;
        }
        if (!deriveKey(s, keyText, salt, key))
            return false;
    }
    QByteArray out(cipherLength - TagBytes, Qt::Uninitialized);
    unsigned long long got = 0;
    const int rc = crypto_aead_xchacha20poly1305_ietf_decrypt(
        reinterpret_cast<unsigned char*>(out.data()), &got, nullptr, cipher,
        static_cast<unsigned long long>(cipherLength), in, HeaderBytes + SaltBytes, nonce,
        key.data());
    sodium_memzero(key.data(), key.size());
    if (rc != 0) {
        qCInfo(lcBedrockFiling) << "enciphered block failed authentication (wrong key or damaged)";
        return false;
    }
    out.resize(qsizetype(got));
    plain = std::move(out);
    return true;
}

void setFastKeyDerivationForTesting(bool fast)
{
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.fast = fast;
}

int keyDerivationCount()
{
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.derivations;
}

} // namespace ArchiveCipher
} // namespace Bedrock
