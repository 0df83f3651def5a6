#include "myworkerthread.h"
#include "slowtests.h"
#include "tempfiles.h"

#include <QtTest>

#include <memory>

namespace {
// The worker's signals in order, recorded on its thread: read them once it has stopped.
void record(MyWorkerThread& worker, QStringList& events)
{
    QObject::connect(
        &worker, &MyWorkerThread::progressChanged, &worker,
        [&events](int step) { events << QString::number(step); }, Qt::DirectConnection);
    QObject::connect(
        &worker, &MyWorkerThread::finished, &worker, [&events] { events << "finished"; },
        Qt::DirectConnection);
}

// Each pass tells the test it has begun and waits, as a derived job should, on
// the condition that cancel() wakes, until allowed on. Its state is the test's, so
// nothing of it is touched once its destruction starts.
class GatedWorker : public MyWorkerThread
{
public:
    GatedWorker(QSemaphore& entered, int& allowed)
        : m_entered(entered)
        , m_allowed(allowed)
    { }
    void allow()
    {
        QMutexLocker lock(&m_mutex);
        ++m_allowed;
        m_condition.wakeAll();
    }

protected:
    void doJob() override
    {
        QSemaphore& entered = m_entered;
        int& allowed = m_allowed;
        QWaitCondition& condition = m_condition;
        const bool& cancelled = m_cancelled;
        entered.release();
        QMutexLocker lock(&m_mutex);
        QDeadlineTimer deadline(5000);
        while (!cancelled && !allowed && condition.wait(&m_mutex, deadline)) { }
        allowed = qMax(allowed - 1, 0);
    }

private:
    QSemaphore& m_entered;
    int& m_allowed;
};

const QStringList AllPasses { "0", "20", "40", "60", "80", "finished" };
} // namespace

class tst_WorkerThread : public QObject
{
    Q_OBJECT

private slots:
    // Cancelled while pass `pass` runs (-1: before the start, 5: never): that
    // job ends and reports, no later one runs, and a new start runs none.
    // Destroyed instead, it returns once its thread has ended, woken by the
    // cancel rather than by the job's own limit.
    void cancel_data()
    {
        QTest::addColumn<int>("pass");
        QTest::addColumn<bool>("destroy");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("never: five passes") << 5 << false << AllPasses;
        QTest::newRow("before the start") << -1 << false << QStringList { "finished" };
        QTest::newRow("first pass") << 0 << false << QStringList { "0", "finished" };
        QTest::newRow("third pass") << 2 << false << QStringList { "0", "20", "40", "finished" };
        QTest::newRow("last pass: finished once") << 4 << false << AllPasses;
        QTest::newRow("destroyed in the second pass")
            << 1 << true << QStringList { "0", "20", "finished" };
    }

    void cancel()
    {
        QFETCH(int, pass);
        QFETCH(bool, destroy);
        QFETCH(QStringList, expected);
        QSemaphore entered;
        int allowed = 0;
        QStringList events;
        auto worker = std::make_unique<GatedWorker>(entered, allowed);
        record(*worker, events);
        if (pass < 0)
            worker->cancel();
        worker->start();
        for (int i = 0; i < 5 && i <= pass; ++i) {
            QVERIFY(entered.tryAcquire(1, 5000));
            QElapsedTimer clock;
            clock.start();
            if (i < pass)
                worker->allow();
            else if (destroy)
                worker.reset();
            else
                worker->cancel();
            QVERIFY(clock.elapsed() < 4000);
        }
        QVERIFY(!worker || worker->wait(5000));
        QCOMPARE(events, expected);
        if (worker && pass < 5) {
            worker->start();
            QVERIFY(worker->wait(5000));
            QCOMPARE(events, expected << "finished");
        }
    }

    // The base job as it stands: five one-second passes.
    void fullRun()
    {
        BEDROCK_SLOW_TEST();
        QStringList events;
        MyWorkerThread worker;
        record(worker, events);
        QElapsedTimer clock;
        clock.start();
        worker.start();
        QVERIFY(worker.wait(20000));
        QVERIFY(clock.elapsed() >= 5000);
        QCOMPARE(events, AllPasses);
    }

    // Returns in a tree, among a name and links that must not count.
    void search_data()
    {
        QTest::addColumn<int>("files");
        QTest::addColumn<QList<int>>("progress");
        QTest::newRow("no returns: the end alone") << 0 << QList<int>();
        QTest::newRow("99") << 99 << QList<int>();
        QTest::newRow("100: progress at the hundredth") << 100 << QList<int> { 100 };
        QTest::newRow("199") << 199 << QList<int> { 100 };
        QTest::newRow("200") << 200 << QList<int> { 100, 200 };
    }

    void search()
    {
        QFETCH(int, files);
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("sub/folder.r21"));
        for (int i = 0; i < files; ++i)
            QVERIFY(
                !writeTempFile(dir, QStringLiteral("%1%2.r21").arg(i % 2 ? "sub/" : "").arg(i), "x")
                     .isEmpty());
        QVERIFY(!writeTempFile(dir, "x.r21.bak", "x").isEmpty());
        QVERIFY(QFile::link(dir.filePath("x.r21.bak"), dir.filePath("link.r21")));
        QVERIFY(QFile::link(dir.filePath("sub"), dir.filePath("linked")));
        FileSearcher searcher;
        QSignalSpy progress(&searcher, &FileSearcher::progressUpdated);
        QSignalSpy finished(&searcher, &FileSearcher::searchFinished);
        searcher.search(dir.path());
        QList<int> counts;
        for (const QList<QVariant>& signal : progress)
            counts << signal.at(0).toInt();
        QTEST(counts, "progress");
        QCOMPARE(finished.size(), 1);
        QCOMPARE(finished.first().at(0).toInt(), files);
    }
};

QTEST_GUILESS_MAIN(tst_WorkerThread)
#include "tst_workerthread.moc"
