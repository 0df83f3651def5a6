// Background work that must not block the user interface: a cancellable
// worker thread that runs a job in five steps, and a search for saved returns.
#pragma once

#include "libbedrock_export.h"

#include <QList>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QThread>
#include <QWaitCondition>

/*
 * run() makes five passes; each calls doJob() and then reports progress 0, 20,
 * 40, 60 and 80 in turn (never 100), and finished() follows the last pass.
 * A derived class puts one fifth of its work in doJob(); the base's sleeps
 * for a second and stands as a model.
 *
 * cancel() takes effect before the next pass (a running doJob() finishes
 * first), after which finished() is emitted. It is for good: a cancelled
 * worker started again emits finished() alone. The signals come from the
 * worker thread and reach receivers on other threads queued.
 *
 * A doJob() that waits may wait on m_condition with m_mutex held, checking
 * m_cancelled: cancel() wakes it. The destructor cancels and waits for the
 * thread without limit, but it runs after a derived class's own destructor:
 * a derived class whose doJob() uses its own members calls cancel() and
 * wait() in its destructor.
 */
class LIBBEDROCK_EXPORT MyWorkerThread : public QThread
{
    Q_OBJECT

public:
    explicit MyWorkerThread(QObject* parent = nullptr);
    ~MyWorkerThread() override;

    void cancel();

Q_SIGNALS:
    void progressChanged(int step);
    // Emitted by run() itself, beside QThread's signal of the same name.
    void finished();

protected:
    void run() override;
    virtual void doJob();

    QMutex m_mutex;
    QWaitCondition m_condition;
    bool m_cancelled; // guarded by m_mutex
};

// Whether `list` holds an element equal to `text`, compared with or without
// regard to case.
LIBBEDROCK_EXPORT bool checkStrInStrList(QString& text, QList<QString>& list, bool caseSensitive);

/*
 * Counts the saved returns ("*.r21" files) in a folder tree, symbolic links
 * neither counted nor followed. search() blocks the calling thread to the end
 * of the tree and cannot be cancelled: move the object to a thread of its own
 * and invoke search() there. The names found are not kept.
 */
class LIBBEDROCK_EXPORT FileSearcher : public QObject
{
    Q_OBJECT

public:
    explicit FileSearcher(QObject* parent = nullptr);

Q_SIGNALS:
    // After every hundredth file, with the count so far.
    void progressUpdated(int count);
    void searchFinished(int count);

public Q_SLOTS:
    void search(QString const& path);
};
