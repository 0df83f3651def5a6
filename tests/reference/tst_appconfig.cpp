#include "cappconfig.h"

#include <QBuffer>
#include <QtTest>

struct AppConfig : CAppConfig {
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

class tst_AppConfig : public QObject
{
    Q_OBJECT
private slots:
    void reads_data()
    {
        constexpr int Max = CAppConfig::MaxLineBytes;
        using B = QByteArray;
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("platform");
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("autoSave");
        QTest::newRow("key and value in any case") << B("PLATFORM=WIN\n") << 0 << "" << false;
        QTest::newRow("blanks and CR LF trimmed") << B("  Platform = win \r\n") << 0 << "" << false;
        QTest::newRow("linux, the last line without a line end")
            << B("Platform=linux") << 1 << "" << false;
        QTest::newRow("value keeps text after the first =")
            << B("ServerUrl = https://x/?a=1\n") << 2 << "https://x/?a=1" << false;
        QTest::newRow("broken UTF-8") << B("ServerUrl=\xff\xfe\n") << 2 << "\ufffd\ufffd" << false;
        QTest::newRow("NUL inside the key") << B("Server\0Url=x\n", 13) << 2 << "" << false;
        QTest::newRow("YES sets") << B("AutoSave=YES") << 2 << "" << true;
        QTest::newRow("False clears") << B("AutoSave=1\nAutoSave=False") << 2 << "" << false;
        QTest::newRow("maybe leaves it") << B("AutoSave=1\nAutoSave=maybe") << 2 << "" << true;
        // A line longer than the limit is dropped whole; the lines around it still count.
        const B key = "ServerUrl=";
        QTest::newRow("line of the longest length kept")
            << "ServerUrl=first\n" + key + B(Max - key.size(), 'x') + "\nAutoSave=1" << 2
            << QString(Max - key.size(), 'x') << true;
        QTest::newRow("one byte longer dropped")
            << "ServerUrl=first\n" + key + B(Max - key.size() + 1, 'x') + "\nAutoSave=1" << 2
            << "first" << true;
        QTest::newRow("endless line dropped")
            << "ServerUrl=first\n" + key + B(Max * 4, 'x') << 2 << "first" << false;
    }
    void reads()
    {
        QFETCH(QByteArray, text);
        QBuffer buffer(&text);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        AppConfig config;
        config.readConfigFromDevice(buffer);
        QTEST(config.getPlatform(), "platform");
        QTEST(QString(config.serverUrl), "url");
        QTEST(config.autoSave, "autoSave");
        QCOMPARE(config.afterCalls, 1);
    }

    void showInFolderCommand_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("platform");
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        // The shell script itself is fixed; only its positional parameters are compared.
        QTest::newRow("linux: the path travels as data, never as script")
            << "/home/a/x; rm -rf ~,b.tax" << 1 << "/bin/sh"
            << QStringList({ "sh", "file:///home/a/x;%20rm%20-rf%20~%2Cb.tax", "/home/a" });
        QTest::newRow("empty path: nothing to start") << "" << 2 << "" << QStringList();
    }
    void showInFolderCommand()
    {
        QFETCH(QString, path);
        QFETCH(int, platform);
        QString program("stale");
        QStringList arguments("stale");
        QCOMPARE(::showInFolderCommand(path, platform, program, arguments), !path.isEmpty());
        QTEST(program, "program");
        QTEST(program == "/bin/sh" ? arguments.mid(2) : arguments, "arguments");
    }
};

QTEST_GUILESS_MAIN(tst_AppConfig)
#include "tst_appconfig.moc"
