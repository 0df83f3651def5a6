// Records the messages of one logging category while it lives, with that
// category's information level switched on (ctest switches bedrock.* info off).
// Messages of other categories go on to the handler that was there before.
#pragma once

#include <QByteArray>
#include <QLoggingCategory>
#include <QString>
#include <QStringList>

class LogCapture
{
public:
    explicit LogCapture(const char* category)
        : m_category(category)
    {
        s_current = this;
        m_previousFilter = QLoggingCategory::installFilter(&filter);
        m_previousHandler = qInstallMessageHandler(&handler);
    }
    ~LogCapture()
    {
        qInstallMessageHandler(m_previousHandler);
        QLoggingCategory::installFilter(m_previousFilter);
        s_current = nullptr;
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Messages of the category at information level or above, in order.
    const QStringList& messages() const { return m_messages; }
    int count() const { return int(m_messages.size()); }
    void clear() { m_messages.clear(); }

private:
    static void filter(QLoggingCategory* category)
    {
        if (s_current->m_previousFilter)
            s_current->m_previousFilter(category);
        if (s_current->m_category == category->categoryName())
            category->setEnabled(QtInfoMsg, true);
    }
    static void handler(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        LogCapture* self = s_current;
        if (type != QtDebugMsg && self->m_category == context.category)
            self->m_messages << text;
        else if (self->m_previousHandler)
            self->m_previousHandler(type, context, text);
    }

    inline static LogCapture* s_current = nullptr;
    QByteArray m_category;
    QLoggingCategory::CategoryFilter m_previousFilter = nullptr;
    QtMessageHandler m_previousHandler = nullptr;
    QStringList m_messages;
};
