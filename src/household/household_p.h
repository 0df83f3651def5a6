// What the dependant list and the medical record share when they load rows.
#pragma once

#include "logging_p.h"
#include "mydatastream.h"

#include <QIODevice>

#include <algorithm>
#include <memory>
#include <vector>

namespace Bedrock {

/*
 * Reads the rows an archive announces. The count comes from the file and is
 * not trusted: rows are read while they arrive, memory is reserved only for
 * as many as a random-access device can still hold (at rowBytes each, at
 * least 1), and a cut archive keeps the complete rows read so far.
 */
template<typename Row>
std::vector<std::unique_ptr<Row>> readAnnouncedRows(MyDataStream& stream, int version, qint64 count,
                                                    qint64 rowBytes, const char* what)
{
    std::vector<std::unique_ptr<Row>> rows;
    QIODevice* device = stream.device();
    if (!device)
        return rows;
    if (!device->isSequential())
        rows.reserve(size_t(std::min<qint64>(
            count, std::max<qint64>(0, device->bytesAvailable()) / std::max<qint64>(1, rowBytes))));
    while (stream.status() == QDataStream::Ok && qint64(rows.size()) < count) {
        auto row = std::make_unique<Row>();
        row->serilize(version, stream);
        if (stream.status() != QDataStream::Ok)
            break;
        rows.push_back(std::move(row));
    }
    if (qint64(rows.size()) < count)
        qCInfo(lcBedrockHousehold) << what << "announces" << count << "rows, holds" << rows.size();
    return rows;
}

} // namespace Bedrock
