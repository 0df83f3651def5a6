// The reading and lookup behind CurrencyInfo, reachable without its singleton.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace Bedrock {

using ExchangeRates = QMap<QString, QMap<int, double>>;

// Replaces `rates` with the contents of a rates file. Text that is not a JSON
// object leaves no rates and gives false. Codes are kept as written; a year
// that is not a 32-bit base-10 number counts as 0, a rate that is not a number
// as 0.
bool parseExchangeRates(const QByteArray& json, ExchangeRates& rates);

// Reads the file at `path` into `rates` (cleared first). A file that will not
// open, is larger than CurrencyInfo::MaxRatesFileBytes or does not parse gives
// false and no rates.
bool readExchangeRatesFile(const QString& path, ExchangeRates& rates);

// True when the code is "CAD" in any case.
bool isCanadianDollar(const QString& currency);

// The lookup of CurrencyInfo::getExchangeRate over the given rates: the code
// upper-cased, "CAD" 1.0, else the exact year or the nearest one less than
// 999 years away, the earlier on a tie. False leaves `rate` unchanged.
bool lookupExchangeRate(const ExchangeRates& rates, const QString& currency, int year,
                        double& rate);

} // namespace Bedrock
