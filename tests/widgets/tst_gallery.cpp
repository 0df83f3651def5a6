// The gallery writes every picture it promises, and none is blank.
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class tst_Gallery : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private Q_SLOTS:
    void initTestCase()
    {
#ifndef BEDROCK_GALLERY
        QSKIP("the examples are not built");
#else
        QVERIFY(m_dir.isValid());
        QProcess gallery;
        gallery.start(QStringLiteral(BEDROCK_GALLERY), { m_dir.path() });
        QVERIFY(gallery.waitForFinished(60000));
        QCOMPARE(gallery.exitStatus(), QProcess::NormalExit);
        QCOMPARE(gallery.exitCode(), 0);
#endif
    }

    void picture_data()
    {
        QTest::addColumn<QString>("file");
        for (const char* file :
             { "panel.png", "string-entry.png", "amount-entry.png", "worksheet-door.png",
               "forward-box.png", "disabled-box.png", "zero-selected.png", "provinces.png",
               "date-blank.png", "date-set.png", "nulldate-blank.png", "nulldate-set.png",
               "datetime-set.png", "check-plain.png", "check-bold.png" })
            QTest::newRow(file) << QString::fromLatin1(file);
        for (const char* sheet : { "ws-58440", "ws-58480", "ws-58600", "ws-adoption", "ws-age",
                                   "ws-infirm-spouse", "ws-caregiver", "ws-infirm", "dlg-input",
                                   "dlg-link", "dlg-question", "dlg-yesno" }) {
            for (const char* lang : { "-en.png", "-fr.png" }) {
                const QString file = QString::fromLatin1(sheet) + QLatin1String(lang);
                QTest::newRow(qPrintable(file)) << file;
            }
        }
    }

    void picture()
    {
        QFETCH(QString, file);
        const QImage image(m_dir.filePath(file));
        QVERIFY2(!image.isNull(), qPrintable(file));
        QVERIFY(image.width() >= 16 && image.height() >= 8);
        // Blank means one colour all over; a drawn widget has a frame or text.
        const QRgb first = image.pixel(0, 0);
        bool drawn = false;
        for (int y = 0; y < image.height() && !drawn; ++y) {
            for (int x = 0; x < image.width() && !drawn; ++x)
                drawn = image.pixel(x, y) != first;
        }
        QVERIFY2(drawn, qPrintable(file + QStringLiteral(" is blank")));
    }
};

QTEST_GUILESS_MAIN(tst_Gallery)
#include "tst_gallery.moc"
