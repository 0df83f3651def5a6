// CurrencyInfo: the value in Canadian dollars of one unit of a currency in a
// tax year, from a JSON file of exchange rates that the application names.
#pragma once

#include "libbedrock_export.h"

#include <QMap>
#include <QString>

/*
 * The rates file is one JSON object: currency code -> { "year": rate, ... }.
 * Lookups upper-case the code, so the file must write its codes in upper case.
 * A year without a rate of its own takes the rate of the nearest year less
 * than 999 years away, the earlier one on a tie. "CAD" is 1.0 always.
 *
 * The file is read once, at the first lookup of a currency other than "CAD",
 * and kept for the rest of the run; a missing, malformed or oversized file
 * (more than MaxRatesFileBytes) leaves no rates and is not read again.
 *
 * The object is made on first use; after that it belongs to one thread, or
 * must be loaded before a second thread reads it. It takes no lock.
 */
class LIBBEDROCK_EXPORT CurrencyInfo
{
public:
    // The most bytes read from the rates file: a real one is a few kilobytes.
    static constexpr qint64 MaxRatesFileBytes = 4 * 1024 * 1024;

    static CurrencyInfo& instance();
    virtual ~CurrencyInfo();

    CurrencyInfo(const CurrencyInfo&) = delete;
    CurrencyInfo& operator=(const CurrencyInfo&) = delete;

    // Stores the path only; it counts only if set before the file is read.
    void setExchangeRatesFile(QString const& path);
    // True with the rate, or false with `rate` unchanged.
    bool getExchangeRate(QString const& currency, int year, double& rate);
    // Reads the file, once per run; later calls do nothing.
    void initializeExchangeRates();

private:
    CurrencyInfo();

    QMap<QString, QMap<int, double>> m_rates;
    bool m_initialized;
    QString m_ratesFile;
};
