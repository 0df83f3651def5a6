// The Canadian-French translation: complete in its file, and switched on and
// off at run time for the widgets built afterwards.
#include <LibBedrock.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>

class tst_Translation : public QObject
{
    Q_OBJECT

    static QStringList labels(QWidget& w)
    {
        QStringList texts;
        for (QLabel* label : w.findChildren<QLabel*>())
            texts << label->text();
        return texts;
    }

    static QStringList placeholders(const QString& text)
    {
        QStringList found;
        for (const auto& m : QRegularExpression("%\\d").globalMatch(text))
            found << m.captured();
        found.sort();
        return found;
    }

private Q_SLOTS:
    void cleanup() { installLibBedrockTranslator(QLocale(QLocale::English, QLocale::Canada)); }

    // Every text is translated, keeps its placeholders, and nothing is left over.
    void fileIsComplete()
    {
        QFile file(QStringLiteral(BEDROCK_TS_FILE));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QString source;
        int messages = 0;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("source")) {
                source = xml.readElementText();
            } else if (xml.name() == QLatin1String("translation")) {
                const QString type = xml.attributes().value("type").toString();
                const QString text = xml.readElementText();
                QVERIFY2(type.isEmpty(), qPrintable(type + ": " + source));
                QVERIFY2(!text.isEmpty(), qPrintable("empty: " + source));
                QCOMPARE(placeholders(text), placeholders(source));
                ++messages;
            }
        }
        QVERIFY(!xml.hasError());
        QVERIFY(messages > 100);
    }

    void frenchWhenInstalled_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<bool>("french");
        QTest::newRow("Canadian French") << QLocale(QLocale::French, QLocale::Canada) << true;
        QTest::newRow("French elsewhere reads Canadian")
            << QLocale(QLocale::French, QLocale::France) << true;
        QTest::newRow("English: the sources")
            << QLocale(QLocale::English, QLocale::Canada) << false;
        QTest::newRow("no translation") << QLocale(QLocale::German, QLocale::Germany) << false;
    }
    void frenchWhenInstalled()
    {
        QFETCH(QLocale, locale);
        QFETCH(bool, french);
        // A French translator first, so a language without one must take it away.
        installLibBedrockTranslator(QLocale(QLocale::French, QLocale::Canada));
        QCOMPARE(installLibBedrockTranslator(locale), french);

        CWSAgeAmtData data;
        WSAgeAmount_tab1 page(&data, nullptr, nullptr);
        const QStringList shown = labels(page);
        QCOMPARE(shown.contains("Calcul du montant en raison de l'âge"), french);
        QCOMPARE(shown.contains("Age Amount Calculation"), !french);
        QCOMPARE(shown.contains("Montant maximal"), french);

        COneQOneChkboxDialog dialog("t", "m", "c", QMessageBox::NoIcon, nullptr);
        QCOMPARE(dialog.m_cancelButton->text(), french ? "Annuler" : "Cancel");

        CT1ComboBox provinces;
        provinces.LoadProvs();
        QCOMPARE(provinces.itemText(ENUM_PROV_BC),
                 french ? "Colombie-Britannique" : "British Columbia");

        // A dependant's line names the relation in the language of the lists.
        DependantInfoStruct deps;
        deps.AllocData(1);
        qstrcpy(deps.m_pData[0].m_FirstName, "Anna");
        deps.m_pData[0].m_Relation = 0;
        StyledComboBox box;
        deps.FillComboBox(&box, nullptr);
        QCOMPARE(box.itemText(1).contains(" - Fils - "), french);
        QCOMPARE(box.itemText(1).contains(" - Son - "), !french);

        StringLineEdit door;
        door.setAttID(1);
        QCOMPARE(door.toolTip(),
                 french ? "appuyez sur une touche ou cliquez pour ouvrir la feuille de travail"
                        : "press key or click to launch worksheet");
    }
};

QTEST_MAIN(tst_Translation)
#include "tst_translation.moc"
