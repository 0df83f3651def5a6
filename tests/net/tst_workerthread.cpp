#include "myworkerthread.h"
#include "slowtests.h"
#include "tempfiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>

namespace {
// The worker's signals as they are emitted, on whichever thread emits them.
// Made before the worker, so that it outlives the worker's thread.
class Events
{
public:
    void watch(MyWorkerThread& worker)
    {
        QObject::connect(
            &worker, &MyWorkerThread::progressChanged, &worker,
            [this](int step) { add(QString::number(step)); }, Qt::DirectConnection);
        QObject::connect(
            &worker, &MyWorkerThread::finished, &worker, [this] { add("finished"); },
            Qt::DirectConnection);
    }
    QStringList take()
    {
        QMutexLocker lock(&m_mutex);
        return std::exchange(m_list, {});
    }

private:
    void add(const QString& event)
    {
        QMutexLocker lock(&m_mutex);
        m_list << event;
    }
    QMutex m_mutex;
    QStringList m_list;
};

class QuickWorker : public MyWorkerThread
{
public:
    std::atomic<int> jobs { 0 };

protected:
    void doJob() override { ++jobs; }
};

// Each pass tells the test it has begun and waits for leave to go on; the
// timeout only keeps a broken build from hanging.
class GatedWorker : public MyWorkerThread
{
public:
    // The semaphores are ours: stop the thread before they go.
    ~GatedWorker() override
    {
        cancel();
        proceed.release(5);
        wait();
    }

    QSemaphore entered;
    QSemaphore proceed;
    std::atomic<int> jobs { 0 };
    std::atomic<int> left { 0 };

protected:
    void doJob() override
    {
        ++jobs;
        entered.release();
        proceed.tryAcquire(1, 5000);
        ++left;
    }
};

// Waits, as a derived job should, on the condition that cancel() wakes. It
// takes what it needs before telling the test it has begun, so nothing of the
// derived object is touched once the test starts to destroy it.
class CancelAwareWorker : public MyWorkerThread
{
public:
    explicit CancelAwareWorker(QSemaphore& entered, std::atomic<int>& jobs)
        : m_entered(entered)
        , m_jobs(jobs)
    { }

protected:
    void doJob() override
    {
        QSemaphore& entered = m_entered;
        std::atomic<int>& jobs = m_jobs;
        QMutex& mutex = m_mutex;
        QWaitCondition& condition = m_condition;
        const bool& cancelled = m_cancelled;
        ++jobs;
        QMutexLocker lock(&mutex);
        entered.release();
        QDeadlineTimer deadline(5000);
        while (!cancelled && condition.wait(&mutex, deadline)) { }
    }

private:
    QSemaphore& m_entered;
    std::atomic<int>& m_jobs;
};

const QStringList AllPasses { "0", "20", "40", "60", "80", "finished" };
} // namespace

class tst_WorkerThread : public QObject
{
    Q_OBJECT
private slots:
    void fivePasses();
    void cancelDuringPass_data();
    void cancelDuringPass();
    void staysCancelled_data();
    void staysCancelled();
    void destructorCancelsAndWaits();
    void fullRun();
    void checkStrInStrList_data();
    void checkStrInStrList();
    void search_data();
    void search();
    void searchSkipsSymbolicLinks();
    void searchMissingFolder();
};

void tst_WorkerThread::fivePasses()
{
    Events events;
    QuickWorker worker;
    events.watch(worker);
    worker.start();
    QVERIFY(worker.wait(5000));
    QCOMPARE(events.take(), AllPasses);
    QCOMPARE(worker.jobs.load(), 5);
}

void tst_WorkerThread::cancelDuringPass_data()
{
    QTest::addColumn<int>("pass");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("first pass: its job ends and reports, no more")
        << 0 << QStringList { "0", "finished" };
    QTest::newRow("third pass") << 2 << QStringList { "0", "20", "40", "finished" };
    QTest::newRow("last pass: finished only once") << 4 << AllPasses;
}

void tst_WorkerThread::cancelDuringPass()
{
    QFETCH(int, pass);
    Events events;
    GatedWorker worker;
    events.watch(worker);
    worker.start();
    for (int i = 0; i < pass; ++i) {
        QVERIFY(worker.entered.tryAcquire(1, 5000));
        worker.proceed.release();
    }
    QVERIFY(worker.entered.tryAcquire(1, 5000));
    worker.cancel();
    // cancel() came back while the job still runs: the lock is not held across it.
    QCOMPARE(worker.left.load(), pass);
    worker.proceed.release();
    QVERIFY(worker.wait(5000));
    QTEST(events.take(), "expected");
    QCOMPARE(worker.jobs.load(), pass + 1);
}

void tst_WorkerThread::staysCancelled_data()
{
    QTest::addColumn<bool>("ranBefore");
    QTest::newRow("cancelled before the first start") << false;
    QTest::newRow("started again after a cancelled run") << true;
}

void tst_WorkerThread::staysCancelled()
{
    QFETCH(bool, ranBefore);
    Events events;
    QuickWorker worker;
    events.watch(worker);
    if (ranBefore) {
        worker.start();
        QVERIFY(worker.wait(5000));
    }
    worker.cancel();
    events.take();
    const int jobsBefore = worker.jobs.load();

    worker.start();
    QVERIFY(worker.wait(5000));
    QCOMPARE(events.take(), QStringList { "finished" });
    QCOMPARE(worker.jobs.load(), jobsBefore);
}

// Destroying a running worker stops it at the next pass and returns only once
// its thread has ended (QThread aborts the process otherwise).
void tst_WorkerThread::destructorCancelsAndWaits()
{
    QSemaphore entered;
    std::atomic<int> jobs { 0 };
    Events events;
    auto* worker = new CancelAwareWorker(entered, jobs);
    events.watch(*worker);
    worker->start();
    QVERIFY(entered.tryAcquire(1, 5000));
    QElapsedTimer clock;
    clock.start();
    delete worker;
    QVERIFY(clock.elapsed() < 4000); // woken by the cancel, not by the job's own limit
    QCOMPARE(events.take(), QStringList({ "0", "finished" }));
    QCOMPARE(jobs.load(), 1);
}

// The base job as it stands: five one-second passes.
void tst_WorkerThread::fullRun()
{
    BEDROCK_SLOW_TEST();
    Events events;
    MyWorkerThread worker;
    events.watch(worker);
    QElapsedTimer clock;
    clock.start();
    worker.start();
    QVERIFY(worker.wait(20000));
    QVERIFY(clock.elapsed() >= 5000);
    QCOMPARE(events.take(), AllPasses);
}

void tst_WorkerThread::checkStrInStrList_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<bool>("found");
    const QStringList provinces { "ON", "QC", "BC" };
    QTest::newRow("empty list") << "" << QStringList() << true << false;
    QTest::newRow("last element") << "BC" << provinces << true << true;
    QTest::newRow("absent") << "AB" << provinces << false << false;
    QTest::newRow("other case, case-sensitive") << "qc" << provinces << true << false;
    QTest::newRow("other case, case-insensitive") << "qc" << provinces << false << true;
    QTest::newRow("empty text matches an empty element")
        << "" << QStringList { "ON", "" } << true << true;
    QTest::newRow("accented letters fold case")
        << QString::fromUtf8("\xc3\xa9t\xc3\xa9")
        << QStringList { QString::fromUtf8("\xc3\x89T\xc3\x89") } << false << true;
}

void tst_WorkerThread::checkStrInStrList()
{
    QFETCH(QString, text);
    QFETCH(QStringList, list);
    QFETCH(bool, caseSensitive);
    QTEST(::checkStrInStrList(text, list, caseSensitive), "found");
}

// Returns spread over a tree, among names that must not count.
void tst_WorkerThread::search_data()
{
    QTest::addColumn<int>("files");
    QTest::addColumn<QList<int>>("progress");
    QTest::newRow("no returns: the end alone") << 0 << QList<int>();
    QTest::newRow("99: no progress yet") << 99 << QList<int>();
    QTest::newRow("100: progress at the hundredth") << 100 << QList<int> { 100 };
    QTest::newRow("101: nothing more after it") << 101 << QList<int> { 100 };
    QTest::newRow("199") << 199 << QList<int> { 100 };
    QTest::newRow("200: second hundred") << 200 << QList<int> { 100, 200 };
    QTest::newRow("250") << 250 << QList<int> { 100, 200 };
}

void tst_WorkerThread::search()
{
    QFETCH(int, files);
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkpath("sub/deeper"));
    QVERIFY(QDir(dir.path()).mkpath("folder.r21"));
    const QStringList folders { "", "sub/", "sub/deeper/" };
    for (int i = 0; i < files; ++i)
        QVERIFY(!writeTempFile(dir, folders[i % 3] + QStringLiteral("return%1.r21").arg(i), "x")
                     .isEmpty());
    for (const char* decoy : { "return.r20", "return.r21.bak", "r21", "sub/return.r2" })
        QVERIFY(!writeTempFile(dir, decoy, "x").isEmpty());

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

void tst_WorkerThread::searchSkipsSymbolicLinks()
{
    QTemporaryDir outside;
    for (int i = 0; i < 3; ++i)
        QVERIFY(!writeTempFile(outside, QStringLiteral("elsewhere%1.r21").arg(i), "x").isEmpty());
    QTemporaryDir dir;
    const QString real = writeTempFile(dir, "real.r21", "x");
    QVERIFY(!real.isEmpty());
    QVERIFY(QFile::link(real, dir.filePath("link.r21")));
    QVERIFY(QFile::link(outside.path(), dir.filePath("linked folder")));

    FileSearcher searcher;
    QSignalSpy finished(&searcher, &FileSearcher::searchFinished);
    searcher.search(dir.path());
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished.first().at(0).toInt(), 1);
}

void tst_WorkerThread::searchMissingFolder()
{
    FileSearcher searcher;
    QSignalSpy progress(&searcher, &FileSearcher::progressUpdated);
    QSignalSpy finished(&searcher, &FileSearcher::searchFinished);
    searcher.search("/nonexistent/folder");
    QCOMPARE(progress.size(), 0);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished.first().at(0).toInt(), 0);
}

QTEST_GUILESS_MAIN(tst_WorkerThread)
#include "tst_workerthread.moc"
