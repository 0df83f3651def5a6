#include "cappconfig.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <atomic>
#include <cstring>

CAppConfig::CAppConfig()
    : m_platform(0)
{
    registerStringKey("Platform", &m_platformText);
}

CAppConfig::~CAppConfig() = default;

void CAppConfig::registerStringKey(const std::string& key, CString* target)
{
    if (target)
        m_stringKeys[key] = target;
}

void CAppConfig::registerBoolKey(const std::string& key, bool* target)
{
    if (target)
        m_boolKeys[key] = target;
}

void CAppConfig::readConfigFile(char const* path)
{
    QFile file(QString::fromUtf8(path ? path : ""));
    if (path && *path && file.open(QIODevice::ReadOnly | QIODevice::Text))
        readLines(file);
    finishReading();
}

void CAppConfig::readConfigFromDevice(QIODevice& device)
{
    if (device.isReadable())
        readLines(device);
    finishReading();
}

void CAppConfig::readLines(QIODevice& device)
{
    // Read in chunks and keep at most one bounded line, so a file of one
    // endless line (or no newline at all) costs no more than MaxLineBytes.
    QByteArray line;
    bool overlong = false;
    char chunk[4096];
    for (;;) {
        const qint64 got = device.read(chunk, sizeof chunk);
        if (got <= 0)
            break;
        const char* p = chunk;
        const char* const end = chunk + got;
        while (p < end) {
            const char* nl = static_cast<const char*>(std::memchr(p, '\n', size_t(end - p)));
            const char* stop = nl ? nl : end;
            if (!overlong) {
                if (line.size() + (stop - p) > MaxLineBytes) {
                    overlong = true;
                    line.clear();
                    line.squeeze();
                } else {
                    line.append(p, stop - p);
                }
            }
            if (!nl)
                break;
            if (!overlong)
                applyLine(QString::fromUtf8(line));
            line.clear();
            overlong = false;
            p = nl + 1;
        }
    }
    if (!overlong && !line.isEmpty())
        applyLine(QString::fromUtf8(line));
}

void CAppConfig::applyLine(const QString& line)
{
    const qsizetype eq = line.indexOf(QLatin1Char('='));
    if (eq < 0)
        return;
    const CString key(line.left(eq).trimmed());
    const QString value = line.mid(eq + 1).trimmed();

    for (const auto& entry : m_stringKeys) {
        if (key.CompareNoCase(entry.first.c_str()) == 0) {
            *entry.second = value;
            return;
        }
    }
    for (const auto& entry : m_boolKeys) {
        if (key.CompareNoCase(entry.first.c_str()) != 0)
            continue;
        const auto is = [&value](const char* word) {
            return value.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
        };
        if (is("true") || is("yes") || is("1"))
            *entry.second = true;
        else if (is("false") || is("no") || is("0"))
            *entry.second = false;
        return;
    }
}

void CAppConfig::finishReading()
{
    const auto is = [this](const char* word) {
        return m_platformText.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    };
    if (is("win"))
        m_platform = 0;
    else if (is("linux"))
        m_platform = 1;
    else
        m_platform = 2; // empty, "mac" and anything unknown
    afterReadConfigFile();
}

void CAppConfig::afterReadConfigFile()
{ }

void CAppConfig::privAutoCheckOSType()
{
    m_platform = 2;
}

bool CAppConfig::isPlatformWindows() const
{
    return m_platform == 0;
}

void CAppConfig::setStringValIfNotSet(CString& s, char const* value)
{
    if (s.IsEmpty())
        s = QString::fromUtf8(value ? value : "");
}

QString getQTBuildFolderNameVerStr()
{
    // Builds against the earlier framework were named "Q56"; those folders are gone.
    QString name = QStringLiteral("Q56");
    name = QStringLiteral("Q65");
    return name;
}

void getOSLibFilename(QString const&, QString& name)
{
    // The build folder name and the base name without "_nonresi" were once part
    // of the path; the bundle layout no longer uses them, and they stay unused.
    const QString buildFolder = getQTBuildFolderNameVerStr();
    QString baseName = name;
    baseName.remove(QLatin1String("_nonresi"));
    Q_UNUSED(buildFolder);
    Q_UNUSED(baseName);
    // One arg() call, so a "%" inside either text is never expanded again.
    name = QStringLiteral("%1/../Frameworks/lib%2.1.dylib")
               .arg(QCoreApplication::applicationDirPath(), name);
}

bool makeFolderExists(CString const& path)
{
    return QDir(QStringLiteral("/")).mkpath(path);
}

void formatWinDocPathToMacPath(CString& out, CString const&, char const*, int)
{
    out.append(QDir::homePath() + QStringLiteral("/Documents"));
}

namespace {
bool startDetachedLauncher(QString const& program, QStringList const& arguments)
{
    return QProcess::startDetached(program, arguments);
}

std::atomic<ShowInFolderLauncher> s_launcher { &startDetachedLauncher };

int currentPlatform()
{
#if defined(Q_OS_MACOS)
    return 2;
#elif defined(Q_OS_WIN)
    return 0;
#else
    return 1;
#endif
}
}

ShowInFolderLauncher setShowInFolderLauncher(ShowInFolderLauncher launcher)
{
    return s_launcher.exchange(launcher ? launcher : &startDetachedLauncher);
}

bool showInFolderCommand(QString const& path, int platform, QString& program,
                         QStringList& arguments)
{
    program.clear();
    arguments.clear();
    if (path.isEmpty())
        return false;
    if (platform == 2) {
        program = QStringLiteral("/usr/bin/osascript");
        arguments << QStringLiteral("-e") << QStringLiteral("tell application \"Finder\"")
                  << QStringLiteral("-e") << QStringLiteral("activate") << QStringLiteral("-e")
                  << QStringLiteral("select POSIX file \"") + path + QStringLiteral("\"")
                  << QStringLiteral("-e") << QStringLiteral("end tell") << QStringLiteral("-e")
                  << QStringLiteral("return");
        return true;
    }
    const QFileInfo info(path);
    if (platform == 0) {
        program = QStringLiteral("explorer.exe");
        arguments << QStringLiteral("/select,") + QDir::toNativeSeparators(info.absoluteFilePath());
        return true;
    }
    // The file manager's D-Bus interface selects the file; a desktop without
    // it gets the folder opened instead. Texts go to the shell as positional
    // parameters, never inside the script, so no path can inject a command.
    program = QStringLiteral("/bin/sh");
    arguments << QStringLiteral("-c")
              << QStringLiteral("dbus-send --session --print-reply "
                                "--dest=org.freedesktop.FileManager1 --type=method_call "
                                "/org/freedesktop/FileManager1 "
                                "org.freedesktop.FileManager1.ShowItems "
                                "\"array:string:$1\" string: >/dev/null 2>&1 "
                                "|| xdg-open \"$2\" >/dev/null 2>&1")
              << QStringLiteral("sh")
              // dbus-send splits array items at commas; an encoded comma is the same URL.
              << QUrl::fromLocalFile(info.absoluteFilePath())
                     .toString(QUrl::FullyEncoded)
                     .replace(QLatin1Char(','), QLatin1String("%2C"))
              << info.absolutePath();
    return true;
}

void showInFolder(QString const& path)
{
    QString program;
    QStringList arguments;
    if (showInFolderCommand(path, currentPlatform(), program, arguments))
        s_launcher.load()(program, arguments);
}
