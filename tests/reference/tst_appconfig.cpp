#include "cappconfig.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QTemporaryFile>
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
}

class tst_AppConfig : public QObject
{
    Q_OBJECT
private slots:
    void read_data();
    void read();
    void missingFileStillSetsPlatform();
    void hostileFile();
    void setStringValIfNotSet();
    void libFilename_data();
    void libFilename();
    void showInFolderArguments();
};

void tst_AppConfig::read_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("platform");
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("autoSave");
    QTest::newRow("win") << QByteArray("Platform=win\n") << 0 << QString() << false;
    QTest::newRow("capitals and blanks around =")
        << QByteArray("  PLATFORM = WIN \r\n") << 0 << QString() << false;
    QTest::newRow("linux") << QByteArray("platform=Linux") << 1 << QString() << false;
    QTest::newRow("unknown platform is mac")
        << QByteArray("Platform=beos\n") << 2 << QString() << false;
    QTest::newRow("line without = changes nothing")
        << QByteArray("Platform win\nServerUrl\n") << 2 << QString() << false;
    QTest::newRow("value keeps text after the first =")
        << QByteArray("serverurl = https://x/?a=1&b=2\n") << 2
        << QStringLiteral("https://x/?a=1&b=2") << false;
    QTest::newRow("registered boolean, yes")
        << QByteArray("AutoSave=YES\n") << 2 << QString() << true;
    QTest::newRow("boolean maybe stays")
        << QByteArray("AutoSave=maybe\n") << 2 << QString() << false;
    QTest::newRow("later line wins, boolean set back")
        << QByteArray("AutoSave=1\nAutoSave=False\nPlatform=mac\n") << 2 << QString() << false;
    QTest::newRow("unregistered key ignored")
        << QByteArray("Colour=red\n#Platform=win\n") << 2 << QString() << false;
    QTest::newRow("UTF-8 value") << QByteArray("ServerUrl=caf\xc3\xa9\n") << 2
                                 << QStringLiteral("caf\u00e9") << false;
}

void tst_AppConfig::read()
{
    QFETCH(QByteArray, text);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(text);
    file.close();
    AppConfig config;
    config.readConfigFile(file.fileName().toUtf8().constData());
    QTEST(config.getPlatform(), "platform");
    QCOMPARE(config.isPlatformWindows(), config.getPlatform() == 0);
    QTEST(QString(config.serverUrl), "url");
    QTEST(config.autoSave, "autoSave");
    QCOMPARE(config.afterCalls, 1);
}

void tst_AppConfig::missingFileStillSetsPlatform()
{
    AppConfig config;
    config.readConfigFile("/nonexistent/dir/app.cfg");
    QCOMPARE(config.getPlatform(), 2);
    QCOMPARE(config.afterCalls, 1);
    config.readConfigFile(nullptr);
    QCOMPARE(config.afterCalls, 2);
}

// An endless line, NULs, broken UTF-8 and no final newline: the good lines
// around them still count, and the overlong one is dropped whole.
void tst_AppConfig::hostileFile()
{
    QByteArray text("ServerUrl=first\n");
    text += "ServerUrl=" + QByteArray(CAppConfig::MaxLineBytes * 4, 'x') + "\n";
    text += QByteArray("Auto\0Save=1\n", 12);
    text += "ServerUrl=\xff\xfe\xc3\n";
    text += "AutoSave=true";
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    AppConfig config;
    config.readConfigFromDevice(buffer);
    QVERIFY(config.autoSave);
    QCOMPARE(config.serverUrl.size(), 3); // replacement characters, never the long value
    QCOMPARE(config.getPlatform(), 2);
}

void tst_AppConfig::setStringValIfNotSet()
{
    CString s;
    CAppConfig::setStringValIfNotSet(s, "first");
    CAppConfig::setStringValIfNotSet(s, "second");
    QCOMPARE(QString(s), QStringLiteral("first"));
}

void tst_AppConfig::libFilename_data()
{
    QTest::addColumn<QString>("ignored");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("province") << QString() << "LibOntario"
                              << "libLibOntario.1.dylib";
    QTest::newRow("suffix kept, first argument ignored") << "LibOntario"
                                                         << "LibAlberta_nonresi"
                                                         << "libLibAlberta_nonresi.1.dylib";
    QTest::newRow("percent not expanded twice") << "%1"
                                                << "Lib%1"
                                                << "libLib%1.1.dylib";
}

void tst_AppConfig::libFilename()
{
    QFETCH(QString, ignored);
    QFETCH(QString, name);
    QFETCH(QString, file);
    getOSLibFilename(ignored, name);
    QCOMPARE(name, QCoreApplication::applicationDirPath() + "/../Frameworks/" + file);
    QCOMPARE(getQTBuildFolderNameVerStr(), QStringLiteral("Q65"));
}

void tst_AppConfig::showInFolderArguments()
{
    QString program;
    QStringList args;
    QVERIFY(showInFolderCommand("/Users/a/My \"Return\".tax", 2, program, args));
    QCOMPARE(program, QStringLiteral("/usr/bin/osascript"));
    QCOMPARE(args,
             QStringList({ "-e", "tell application \"Finder\"", "-e", "activate", "-e",
                           "select POSIX file \"/Users/a/My \"Return\".tax\"", "-e", "end tell",
                           "-e", "return" }));
    // On a desktop without the Finder the path travels as data, never as script.
    QVERIFY(showInFolderCommand("/home/a/x; rm -rf ~,b.tax", 1, program, args));
    QCOMPARE(program, QStringLiteral("/bin/sh"));
    QCOMPARE(args.mid(2),
             QStringList({ "sh", "file:///home/a/x;%20rm%20-rf%20~%2Cb.tax", "/home/a" }));
    QVERIFY(!showInFolderCommand(QString(), 1, program, args));

    const ShowInFolderLauncher previous = setShowInFolderLauncher(&recordLaunch);
    showInFolder("/tmp/report.pdf");
    setShowInFolderLauncher(previous);
    QVERIFY(!s_launched.isEmpty());
    QVERIFY(s_launched.join(' ').contains("report.pdf"));
}

QTEST_GUILESS_MAIN(tst_AppConfig)
#include "tst_appconfig.moc"
