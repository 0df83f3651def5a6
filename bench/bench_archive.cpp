// The enciphered block against the plain block it wraps (the baseline), with
// the derived key already cached; and the one-time key derivation on its own.
#include "archivecipher_p.h"
#include "cmemoryblock.h"
#include "mydatastream.h"

#include <QBuffer>

#include <benchmark/benchmark.h>

namespace {

QByteArray recordText(int fields)
{
    QByteArray text("<m>");
    for (int i = 0; i < fields; ++i)
        text += "<f n=\"fld_" + QByteArray::number(i) + "\">" + QByteArray::number(i * 1.25, 'f', 2)
            + "</f>";
    return text + "</m>";
}

template<typename Block, typename... Key> void storeAndLoad(benchmark::State& state, Key... key)
{
    const QByteArray text = recordText(int(state.range(0)));
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        MyDataStream so(&out);
        Block stored(key...);
        stored.Append(text.constData(), int(text.size()));
        stored.WriteToReturnArchive(so);
        out.close();
        QBuffer in(&bytes);
        in.open(QIODevice::ReadOnly);
        MyDataStream si(&in);
        Block loaded(key...);
        loaded.ReadFromReturnArchive(si);
        benchmark::DoNotOptimize(loaded.GetContentSize());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

void BM_PlainBlock(benchmark::State& state)
{
    storeAndLoad<CMemoryBlock>(state);
}

void BM_EncryptedBlockCachedKey(benchmark::State& state)
{
    storeAndLoad<CT1EncryptedMemoryBlock>(state, CString("bench key"));
}

void BM_KeyDerivation(benchmark::State& state)
{
    static int n = 0; // across repetitions too, or later ones would hit the cache
    for (auto _ : state) {
        // A new key text each time defeats the cache: this is the first save of a session.
        CT1EncryptedMemoryBlock block(CString(QStringLiteral("key %1").arg(++n)));
        QByteArray bytes;
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        MyDataStream so(&out);
        block.WriteToReturnArchive(so);
    }
}

} // namespace

BENCHMARK(BM_PlainBlock)->Arg(100)->Arg(1000);
BENCHMARK(BM_EncryptedBlockCachedKey)->Arg(100)->Arg(1000);
BENCHMARK(BM_KeyDerivation)->Iterations(5)->Unit(benchmark::kMillisecond);
