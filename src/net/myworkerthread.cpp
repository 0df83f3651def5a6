#include "myworkerthread.h"

#include <QDir>
#include <QDirIterator>

#include <utility>

MyWorkerThread::MyWorkerThread(QObject* parent)
    : QThread(parent)
    , m_cancelled(false)
{ }

MyWorkerThread::~MyWorkerThread()
{
    // QThread must not die while its thread runs.
    cancel();
    wait();
}

void MyWorkerThread::cancel()
{
    m_mutex.lock();
    m_cancelled = true;
    m_mutex.unlock();
    m_condition.wakeAll();
}

void MyWorkerThread::run()
{
    for (int step = 0; step < 100; step += 20) {
        // The lock covers the test alone, never doJob(), so cancel() does
        // not wait for a long job.
        m_mutex.lock();
        if (m_cancelled) {
            m_mutex.unlock();
            emit finished();
            return;
        }
        m_mutex.unlock();
        doJob();
        emit progressChanged(step);
    }
    emit finished();
}

void MyWorkerThread::doJob()
{
    QThread::msleep(1000);
}

bool checkStrInStrList(QString& text, QList<QString>& list, bool caseSensitive)
{
    const Qt::CaseSensitivity cs = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (const QString& item : std::as_const(list)) {
        if (QString::compare(item, text, cs) == 0)
            return true;
    }
    return false;
}

FileSearcher::FileSearcher(QObject* parent)
    : QObject(parent)
{ }

void FileSearcher::search(QString const& path)
{
    QDirIterator it(path, QStringList(QStringLiteral("*.r21")), QDir::Files | QDir::NoSymLinks,
                    QDirIterator::Subdirectories);
    int count = 0;
    while (it.hasNext()) {
        it.next();
        ++count;
        if (count % 100 == 0)
            emit progressUpdated(count);
    }
    emit searchFinished(count);
}
