#include "currencyinfo.h"
#include "currencyinfo_p.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace Bedrock {

bool parseExchangeRates(const QByteArray& json, ExchangeRates& rates)
{
    rates.clear();
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return false;
    const QJsonObject top = document.object();
    for (auto currency = top.begin(); currency != top.end(); ++currency) {
        const QJsonObject years = currency.value().toObject();
        QMap<int, double>& byYear = rates[currency.key()];
        for (auto entry = years.begin(); entry != years.end(); ++entry)
            byYear.insert(entry.key().toInt(nullptr, 10), entry.value().toDouble());
    }
    return true;
}

bool readExchangeRatesFile(const QString& path, ExchangeRates& rates)
{
    rates.clear();
    // No file named is no rates, without a word from QFile.
    if (path.isEmpty())
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    // One byte past the bound tells an oversized file from one at the bound
    // without reading the rest of it.
    const QByteArray bytes = file.read(CurrencyInfo::MaxRatesFileBytes + 1);
    file.close();
    if (bytes.size() > CurrencyInfo::MaxRatesFileBytes)
        return false;
    return parseExchangeRates(bytes, rates);
}

bool isCanadianDollar(const QString& currency)
{
    return currency.toUpper() == QLatin1String("CAD");
}

bool lookupExchangeRate(const ExchangeRates& rates, const QString& currency, int year, double& rate)
{
    if (isCanadianDollar(currency)) {
        rate = 1.0;
        return true;
    }
    const auto found = rates.constFind(currency.toUpper());
    if (found == rates.constEnd())
        return false;
    const QMap<int, double>& byYear = found.value();
    const auto exact = byYear.constFind(year);
    if (exact != byYear.constEnd()) {
        rate = exact.value();
        return true;
    }
    // Rising order and a strict "nearer" keep the earlier of two equally near
    // years. Distances in 64 bits: two ints may lie 2^32 apart.
    qint64 bestDistance = 999;
    auto best = byYear.constEnd();
    for (auto it = byYear.constBegin(); it != byYear.constEnd(); ++it) {
        const qint64 distance = qAbs(qint64(it.key()) - qint64(year));
        if (distance < bestDistance) {
            bestDistance = distance;
            best = it;
        }
    }
    if (best == byYear.constEnd())
        return false;
    rate = best.value();
    return true;
}

} // namespace Bedrock

CurrencyInfo::CurrencyInfo()
    : m_initialized(false)
{ }

CurrencyInfo::~CurrencyInfo() = default;

CurrencyInfo& CurrencyInfo::instance()
{
    static CurrencyInfo info;
    return info;
}

void CurrencyInfo::setExchangeRatesFile(QString const& path)
{
    m_ratesFile = path;
}

bool CurrencyInfo::getExchangeRate(QString const& currency, int year, double& rate)
{
    // "CAD" needs no file, so it does not spend the one load either.
    if (!m_initialized && !Bedrock::isCanadianDollar(currency))
        initializeExchangeRates();
    return Bedrock::lookupExchangeRate(m_rates, currency, year, rate);
}

void CurrencyInfo::initializeExchangeRates()
{
    if (m_initialized)
        return;
    // A file that fails is not tried again: lookups other than "CAD" then
    // answer false for the rest of the run.
    Bedrock::readExchangeRatesFile(m_ratesFile, m_rates);
    m_initialized = true;
}
