// Arbitrary bytes as a rates file, then lookups around every year it holds.
#include "currencyinfo_p.h"

#include <cstdint>
#include <limits>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes
        = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    Bedrock::ExchangeRates rates;
    if (!Bedrock::parseExchangeRates(bytes, rates) && !rates.isEmpty())
        __builtin_trap();

    double rate = 0.0;
    if (!Bedrock::lookupExchangeRate(rates, QStringLiteral("cad"), 0, rate) || rate != 1.0)
        __builtin_trap();

    constexpr int IntMin = std::numeric_limits<int>::min();
    constexpr int IntMax = std::numeric_limits<int>::max();
    int budget = 256; // lookups walk every year: keep a large input from going quadratic
    for (auto currency = rates.cbegin(); currency != rates.cend() && budget > 0; ++currency) {
        const QString& code = currency.key();
        Bedrock::lookupExchangeRate(rates, code, IntMin, rate);
        Bedrock::lookupExchangeRate(rates, code, IntMax, rate);
        // Only codes already in upper case (and not "CAD") reach their own rates.
        if (code != code.toUpper() || code == QLatin1String("CAD"))
            continue;
        for (auto year = currency->cbegin(); year != currency->cend() && budget > 0; ++year) {
            --budget;
            double found = -1.0;
            if (!Bedrock::lookupExchangeRate(rates, code, year.key(), found))
                __builtin_trap();
            if (!(found == year.value() || (found != found && year.value() != year.value())))
                __builtin_trap();
            const qint64 near = qint64(year.key()) + 998;
            if (near <= IntMax && !Bedrock::lookupExchangeRate(rates, code, int(near), found))
                __builtin_trap();
        }
    }
    return 0;
}
