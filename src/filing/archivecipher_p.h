// The authenticated cipher of the return archive's blocks.
#pragma once

#include <QByteArray>

class QIODevice;

#include <string>

namespace Bedrock {
namespace ArchiveCipher {

/*
 * Envelope: 4-byte header ("BRK" and a scheme number), 16-byte salt, 24-byte
 * nonce, then the XChaCha20-Poly1305 ciphertext with its 16-byte tag. The
 * header and salt are authenticated as associated data. The key is derived
 * from the key text and the salt with Argon2id (interactive limits).
 */
constexpr int HeaderBytes = 4;
constexpr int SaltBytes = 16;
constexpr int NonceBytes = 24;
constexpr int TagBytes = 16;
constexpr int OverheadBytes = HeaderBytes + SaltBytes + NonceBytes + TagBytes;

// A file the library writes uses one salt for all its records; a return
// assembled from the records of a few older processes uses a few. Each new
// salt costs one Argon2id derivation, so a hostile file that gives every
// record its own salt could hold the application for minutes: past this many
// distinct salts on one device being loaded, records are refused unread.
constexpr int MaxSaltsPerDevice = 4;

// Enciphers with a fresh nonce under the process's salt; empty on failure.
QByteArray seal(const std::string& keyText, const char* plain, int length);
// False, with `plain` empty, for a wrong key or altered, cut or foreign bytes,
// and, when `source` is given, for a salt past the MaxSaltsPerDevice-th distinct
// one met on that device (its salts are forgotten when it is destroyed).
bool open(const std::string& keyText, const char* envelope, int length, QByteArray& plain,
          const QIODevice* source = nullptr);

// Tests and fuzzers only: replaces Argon2id by a keyed hash so that thousands of
// records can be opened per second. Envelopes made in one mode do not open in the other.
void setFastKeyDerivationForTesting(bool fast);
// How many Argon2id derivations this process has run (for tests of the cache).
int keyDerivationCount();

} // namespace ArchiveCipher
} // namespace Bedrock
