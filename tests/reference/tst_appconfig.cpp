#include "cappconfig.h"
#include "tempfiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

namespace {
// An application's configuration: its own keys, registered before reading.
class AppConfig : public CAppConfig
{
public:
    AppConfig()
    {
        registerStringKey("ServerUrl", &serverUrl);
        registerBoolKey("AutoSave", &autoSave);
    }
    void afterReadConfigFile() override { ++afterCalls; }
    CString serverUrl;
    bool autoSave = false;
    int afterCalls = 0;
};

QStringList s_launched;
bool recordLaunch(QString const& program, QStringList const& arguments)
{
    s_launched = QStringList(program) + arguments;
    return true;
}
} // namespace

class tst_AppConfig : public QObject
{
    Q_OBJECT
private slots:
    void platform_data();
    void platform();
    void stringKey_data();
    void stringKey();
    void boolKey_data();
    void boolKey();
    void missingFileStillSetsPlatform();
    void lineLength_data();
    void lineLength();
    void setStringValIfNotSet_data();
    void setStringValIfNotSet();
    void libFilename_data();
    void libFilename();
    void buildFolderName();
    void showInFolderCommand_data();
    void showInFolderCommand();
    void showInFolderLaunches();
};

void tst_AppConfig::platform_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("platform");
    QTest::newRow("win") << QByteArray("Platform=win\n") << 0;
    QTest::newRow("key in capitals") << QByteArray("PLATFORM=win\n") << 0;
    QTest::newRow("value in capitals") << QByteArray("Platform=WIN\n") << 0;
    QTest::newRow("blanks around the =") << QByteArray("  Platform = win \n") << 0;
    QTest::newRow("CR LF line end") << QByteArray("Platform=win\r\n") << 0;
    QTest::newRow("last line without a line end") << QByteArray("Platform=win") << 0;
    QTest::newRow("linux") << QByteArray("Platform=linux\n") << 1;
    QTest::newRow("mac") << QByteArray("Platform=mac\n") << 2;
    QTest::newRow("empty value is mac") << QByteArray("Platform=\n") << 2;
    QTest::newRow("unknown value is mac") << QByteArray("Platform=beos\n") << 2;
    QTest::newRow("line without = changes nothing") << QByteArray("Platform win\n") << 2;
    QTest::newRow("no comment syntax: a marked key is another key")
        << QByteArray("#Platform=win\n") << 2;
    QTest::newRow("later line wins") << QByteArray("Platform=win\nPlatform=linux\n") << 1;
}

void tst_AppConfig::platform()
{
    QFETCH(QByteArray, text);
    QTemporaryDir dir;
    const QString path = writeTempFile(dir, "app.cfg", text);
    QVERIFY(!path.isEmpty());
    AppConfig config;
    config.readConfigFile(QFile::encodeName(path).constData());
    QTEST(config.getPlatform(), "platform");
    QCOMPARE(config.isPlatformWindows(), config.getPlatform() == 0);
    QCOMPARE(config.afterCalls, 1);
}

void tst_AppConfig::stringKey_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("url");
    QTest::newRow("registered key") << QByteArray("ServerUrl=https://x/\n") << "https://x/";
    QTest::newRow("key in another case") << QByteArray("serverurl=https://x/\n") << "https://x/";
    QTest::newRow("value keeps text after the first =")
        << QByteArray("ServerUrl = https://x/?a=1&b=2\n") << "https://x/?a=1&b=2";
    QTest::newRow("line without = is skipped") << QByteArray("ServerUrl https://x/\n") << "";
    QTest::newRow("unregistered key ignored") << QByteArray("Colour=red\n") << "";
    QTest::newRow("UTF-8 value") << QByteArray("ServerUrl=caf\xc3\xa9\n") << "caf\u00e9";
    QTest::newRow("broken UTF-8 gives replacement characters")
        << QByteArray("ServerUrl=\xff\xfe\n") << "\ufffd\ufffd";
    QTest::newRow("NUL inside the key: another key")
        << QByteArray("Server\0Url=x\n", 13) << QString();
}

void tst_AppConfig::stringKey()
{
    QFETCH(QByteArray, text);
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    AppConfig config;
    config.readConfigFromDevice(buffer);
    QTEST(QString(config.serverUrl), "url");
}

void tst_AppConfig::boolKey_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("true sets") << QByteArray("true") << false << true;
    QTest::newRow("yes sets") << QByteArray("yes") << false << true;
    QTest::newRow("1 sets") << QByteArray("1") << false << true;
    QTest::newRow("YES in capitals sets") << QByteArray("YES") << false << true;
    QTest::newRow("false clears") << QByteArray("false") << true << false;
    QTest::newRow("no clears") << QByteArray("no") << true << false;
    QTest::newRow("0 clears") << QByteArray("0") << true << false;
    QTest::newRow("False in capitals clears") << QByteArray("False") << true << false;
    QTest::newRow("maybe leaves false") << QByteArray("maybe") << false << false;
    QTest::newRow("maybe leaves true") << QByteArray("maybe") << true << true;
    QTest::newRow("2 leaves false") << QByteArray("2") << false << false;
    QTest::newRow("empty leaves true") << QByteArray("") << true << true;
}

void tst_AppConfig::boolKey()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, before);
    QByteArray text = "AutoSave=" + value + "\n";
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    AppConfig config;
    config.autoSave = before;
    config.readConfigFromDevice(buffer);
    QTEST(config.autoSave, "after");
}

void tst_AppConfig::missingFileStillSetsPlatform()
{
    AppConfig config;
    QCOMPARE(config.getPlatform(), 0);
    config.readConfigFile("/nonexistent/dir/app.cfg");
    QCOMPARE(config.getPlatform(), 2);
    QCOMPARE(config.afterCalls, 1);
    config.readConfigFile(nullptr);
    QCOMPARE(config.afterCalls, 2);
}

// A line is kept up to MaxLineBytes before its line end and dropped whole
// beyond, so an endless line costs no memory; the lines around it still count.
void tst_AppConfig::lineLength_data()
{
    constexpr int Max = CAppConfig::MaxLineBytes;
    const QByteArray key = "ServerUrl=";
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("urlSize");
    QTest::newRow("line of the longest length kept")
        << key + QByteArray(Max - key.size(), 'x') << Max - int(key.size());
    QTest::newRow("one byte longer dropped")
        << key + QByteArray(Max - key.size() + 1, 'x') << int(QByteArray("first").size());
    QTest::newRow("endless line dropped")
        << key + QByteArray(Max * 4, 'x') << int(QByteArray("first").size());
}

void tst_AppConfig::lineLength()
{
    QFETCH(QByteArray, line);
    QByteArray text = "ServerUrl=first\n" + line + "\nAutoSave=true";
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    AppConfig config;
    config.readConfigFromDevice(buffer);
    QTEST(int(config.serverUrl.size()), "urlSize");
    QVERIFY(config.autoSave);
}

void tst_AppConfig::setStringValIfNotSet_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("empty takes the value") << QString() << "value";
    QTest::newRow("set string left alone") << "kept"
                                           << "kept";
}

void tst_AppConfig::setStringValIfNotSet()
{
    QFETCH(QString, before);
    CString s(before);
    CAppConfig::setStringValIfNotSet(s, "value");
    QTEST(QString(s), "after");
}

void tst_AppConfig::libFilename_data()
{
    QTest::addColumn<QString>("ignored");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("province") << QString() << "LibOntario"
                              << "libLibOntario.1.dylib";
    QTest::newRow("suffix kept") << QString() << "LibAlberta_nonresi"
                                 << "libLibAlberta_nonresi.1.dylib";
    QTest::newRow("first argument not read") << "LibOntario"
                                             << "LibAlberta"
                                             << "libLibAlberta.1.dylib";
    QTest::newRow("percent not expanded twice") << "%1"
                                                << "Lib%1"
                                                << "libLib%1.1.dylib";
}

void tst_AppConfig::libFilename()
{
    QFETCH(QString, ignored);
    QFETCH(QString, name);
    getOSLibFilename(ignored, name);
    QFETCH(QString, file);
    QCOMPARE(name, QCoreApplication::applicationDirPath() + "/../Frameworks/" + file);
}

void tst_AppConfig::buildFolderName()
{
    QCOMPARE(getQTBuildFolderNameVerStr(), QStringLiteral("Q65"));
}

void tst_AppConfig::showInFolderCommand_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("platform");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("mac: five script lines")
        << "/Users/a/My \"Return\".tax" << 2 << true << "/usr/bin/osascript"
        << QStringList({ "-e", "tell application \"Finder\"", "-e", "activate", "-e",
                         "select POSIX file \"/Users/a/My \"Return\".tax\"", "-e", "end tell", "-e",
                         "return" });
    QTest::newRow("windows: the file selected")
        << "/tmp/r.pdf" << 0 << true << "explorer.exe" << QStringList({ "/select,/tmp/r.pdf" });
    // The shell script itself is fixed; only its positional parameters are compared.
    QTest::newRow("linux: the path travels as data, never as script")
        << "/home/a/x; rm -rf ~,b.tax" << 1 << true << "/bin/sh"
        << QStringList({ "sh", "file:///home/a/x;%20rm%20-rf%20~%2Cb.tax", "/home/a" });
    QTest::newRow("empty path: nothing to start")
        << QString() << 2 << false << QString() << QStringList();
}

void tst_AppConfig::showInFolderCommand()
{
    QFETCH(QString, path);
    QFETCH(int, platform);
    QString program("stale");
    QStringList arguments("stale");
    QTEST(::showInFolderCommand(path, platform, program, arguments), "ok");
    QTEST(program, "program");
    if (program == "/bin/sh")
        arguments = arguments.mid(2);
    QTEST(arguments, "arguments");
}

void tst_AppConfig::showInFolderLaunches()
{
    const ShowInFolderLauncher previous = setShowInFolderLauncher(&recordLaunch);
    showInFolder("/tmp/report.pdf");
    setShowInFolderLauncher(previous);
    QVERIFY(s_launched.join(' ').contains("report.pdf"));
}

QTEST_GUILESS_MAIN(tst_AppConfig)
#include "tst_appconfig.moc"
