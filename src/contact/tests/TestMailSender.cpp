#include "base/tests/LogCapture.h"
#include "contact/MailSender.h"

#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Tesk;

namespace {

const QString Recipient = QStringLiteral("info@maker.example");

int DigitValue(char digit)
{
    return digit <= '9' ? digit - '0' : digit - 'A' + 10;
}

/// What a mail program makes of an encoded text: each "%XX" is a byte, upper-case digits only.
QByteArray Decoded(const QByteArray &encoded)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < encoded.size(); ++i) {
        if (encoded[i] == '%') {
            bytes +=
                static_cast<char>(16 * DigitValue(encoded[i + 1]) + DigitValue(encoded[i + 2]));
            i += 2;
        } else {
            bytes += encoded[i];
        }
    }
    return bytes;
}

#ifdef Q_OS_LINUX

/// While it lives, the system's opener of addresses is this shell script.
class ReplacedOpener final
{
public:
    explicit ReplacedOpener(const QByteArray &script)
        : path(qgetenv("PATH"))
    {
        QFile program(folder.filePath(QStringLiteral("xdg-open")));
        if (!program.open(QIODevice::WriteOnly) || program.write("#!/bin/sh\n" + script) < 0 ||
            !program.setPermissions(QFile::ReadOwner | QFile::ExeOwner))
            qFatal("the test's opener cannot be written");
        qputenv("PATH", folder.path().toUtf8() + ':' + path);
    }
    ~ReplacedOpener() { qputenv("PATH", path); }
    ReplacedOpener(const ReplacedOpener &) = delete;
    ReplacedOpener &operator=(const ReplacedOpener &) = delete;

private:
    QTemporaryDir folder;
    QByteArray path;
};

#endif

} // namespace

class TestMailSender : public QObject
{
    Q_OBJECT

private:
    QList<QByteArray> opened;
    bool isOpenable = true;
    const MailSender sender{[this](const QByteArray &address) {
        opened += address;
        return isOpenable;
    }};

private Q_SLOTS:
    void init()
    {
        opened.clear();
        isOpenable = true;
    }

    void testEncodesByTheCodePage_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("encoded");
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("hyphen") << QStringLiteral("a-b") << QStringLiteral("a%2Db");
        QTest::newRow("per cent") << QStringLiteral("50%") << QStringLiteral("50%25");
        QTest::newRow("blanks stay") << QStringLiteral(" x  y ") << QStringLiteral(" x  y ");
        QTest::newRow("kept ranges") << QStringLiteral("AZaz09") << QStringLiteral("AZaz09");
        QTest::newRow("around the ranges")
            << QStringLiteral("@[`{/:") << QStringLiteral("%40%5B%60%7B%2F%3A");
        QTest::newRow("line end") << QStringLiteral("\r\n") << QStringLiteral("%0D%0A");
        QTest::newRow("tab has a leading zero") << QStringLiteral("\t") << QStringLiteral("%09");
        QTest::newRow("of addresses")
            << QStringLiteral("a&b=c;d?e#f+g") << QStringLiteral("a%26b%3Dc%3Bd%3Fe%23f%2Bg");
        QTest::newRow("already encoded") << QStringLiteral("%41") << QStringLiteral("%2541");
        QTest::newRow("umlauts") << QStringLiteral("Grüße") << QStringLiteral("Gr%FC%DFe");
        QTest::newRow("euro and dash") << QStringLiteral("€–") << QStringLiteral("%80%96");
        QTest::newRow("outside the code page") << QStringLiteral("aжb") << QStringLiteral("a%3Fb");
        QTest::newRow("outside, of two units") << QStringLiteral("😀") << QStringLiteral("%3F");
    }

    void testEncodesByTheCodePage()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, encoded);
        QCOMPARE(MailSender::EncodeMailText(text), encoded);
    }

    void testEveryCodeComesBack()
    {
        QString text;
        for (char16_t code = 1; code < 256; ++code) {
            // The codes 128 to 159 stand for other characters in the code page.
            if (code < 128 || code > 159)
                text += QChar(code);
        }
        QCOMPARE(QString::fromLatin1(Decoded(MailSender::EncodeMailText(text).toLatin1())), text);
    }

#ifndef Q_OS_WIN

    void testAddressLeavesInUtf8()
    {
        sender.SendMail(Recipient, QStringLiteral("Gruß aus A-Stadt"),
                        QStringLiteral("Für 5 €\r\n"));
        QCOMPARE(opened, QList<QByteArray>{"mailto:info@maker.example"
                                           "?subject=Gru%C3%9F%20aus%20A%2DStadt"
                                           "&body=F%C3%BCr%205%20%E2%82%AC%0D%0A"});
    }

    void testOutgoingAddressIsDecodedToTheText()
    {
        const QString body =
            QStringLiteral("Straße: Äpfel & Öl; 50% = „½“?\r\n\r\nGrüße + mehr #1");
        sender.SendMail(Recipient, QStringLiteral("Übersicht"), body);
        QCOMPARE(opened.size(), 1);
        const QByteArray start = "mailto:info@maker.example?subject=";
        QVERIFY(opened[0].startsWith(start));
        const QList<QByteArray> parts = opened[0].mid(start.size()).split('&');
        QCOMPARE(parts.size(), 2);
        QCOMPARE(QString::fromUtf8(Decoded(parts[0])), QStringLiteral("Übersicht"));
        QVERIFY(parts[1].startsWith("body="));
        QCOMPARE(QString::fromUtf8(Decoded(parts[1].mid(5))), body);
    }

    void testOutgoingAddressIsValid()
    {
        sender.SendMail(Recipient, QStringLiteral("ä b"), QStringLiteral("%ü \"<>\\^`{|}\r\nж"));
        QCOMPARE(opened.size(), 1);
        for (const char byte : opened[0])
            QVERIFY(byte > ' ' && byte < '\x7f');
        const QUrl url = QUrl::fromEncoded(opened[0], QUrl::StrictMode);
        QVERIFY2(url.isValid(), qPrintable(url.errorString()));
        QCOMPARE(url.scheme(), QStringLiteral("mailto"));
    }

    void testOpenCodesOfTheCodePageLeaveAsTheirOwnCharacters()
    {
        sender.OpenDocument(QStringLiteral("mailto:a@b.example?body=%81"));
        QCOMPARE(opened, QList<QByteArray>{"mailto:a@b.example?body=%C2%81"});
    }

    void testPerCentWithoutDigitsIsEncoded_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QByteArray>("outgoing");
        QTest::newRow("at the end") << QStringLiteral("50%") << QByteArray("50%25");
        QTest::newRow("one digit") << QStringLiteral("%F") << QByteArray("%25F");
        QTest::newRow("no digits") << QStringLiteral("%xy") << QByteArray("%25xy");
        QTest::newRow("a sign is no digit") << QStringLiteral("%+1") << QByteArray("%25+1");
        QTest::newRow("lower-case digits") << QStringLiteral("%fc") << QByteArray("%C3%BC");
    }

    void testPerCentWithoutDigitsIsEncoded()
    {
        QFETCH(const QString, body);
        QFETCH(const QByteArray, outgoing);
        sender.OpenDocument(QStringLiteral("mailto:a@b.example?body=") + body);
        QCOMPARE(opened, QList<QByteArray>{"mailto:a@b.example?body=" + outgoing});
    }

#endif

    void testLongBodyArrivesWhole()
    {
        const QString body = QStringLiteral("ü-x ").repeated(2500);
        sender.SendMail(Recipient, QString(), body);
        QCOMPARE(opened.size(), 1);
        const QByteArray encoded = opened[0].mid(opened[0].indexOf("&body=") + 6);
        QCOMPARE(QString::fromUtf8(Decoded(encoded)), body);
    }

#ifdef Q_OS_LINUX

    void testSystemsOpenerGetsTheAddressAsOneArgument()
    {
        const QTemporaryDir folder;
        const QString noted = folder.filePath(QStringLiteral("noted"));
        const ReplacedOpener opener("printf '%s\\n' \"$#\" \"$1\" > '" + noted.toUtf8() +
                                    ".new'\nmv '" + noted.toUtf8() + ".new' '" + noted.toUtf8() +
                                    "'\n");

        const MailSender systemsSender;
        systemsSender.SendMail(Recipient, QStringLiteral("ä-b"),
                               QStringLiteral("$HOME `id` 'a' \"b\"\r\n") +
                                   QStringLiteral("x").repeated(100000));
        QTRY_VERIFY(QFile::exists(noted));
        QFile result(noted);
        QVERIFY(result.open(QIODevice::ReadOnly));
        QCOMPARE(result.readAll(),
                 "1\nmailto:info@maker.example?subject=%C3%A4%2Db&body=%24HOME%20%60id%60%20%27a"
                 "%27%20%22b%22%0D%0A" +
                     QByteArray(100000, 'x') + '\n');
    }

    void testOpenerThatFindsNoProgramLeavesALine()
    {
        const ReplacedOpener opener("exit 3\n");
        const LogCapture log;
        MailSender().SendMail(Recipient, QStringLiteral("Secret"), QStringLiteral("Secret"));
        QTRY_COMPARE(log.Lines().size(), 1);
        QCOMPARE(log.Lines().first(),
                 QStringLiteral("xdg-open ended with status 3 on the message to "
                                "mailto:info@maker.example - install a mail program and make it "
                                "the system's program for mail addresses."));
    }

    void testOpenerThatStaysIsNotWaitedFor()
    {
        const QTemporaryDir folder;
        const QString end = folder.filePath(QStringLiteral("end"));
        const QString ended = folder.filePath(QStringLiteral("ended"));
        // The second one finds that the first has ended, and fails.
        const ReplacedOpener opener("[ ! -e '" + ended.toUtf8() + "' ] || exit 3\nwhile [ ! -e '" +
                                    end.toUtf8() + "' ]; do sleep 0.02; done\n: > '" +
                                    ended.toUtf8() + "'\n");
        const LogCapture log;
        MailSender().SendMail(Recipient, QString(), QString());
        QVERIFY(!QFile::exists(ended));
        QFile file(end);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QTRY_VERIFY(QFile::exists(ended));
        QCOMPARE(log.Lines(), QStringList());

        MailSender().SendMail(Recipient, QString(), QString());
        QTRY_VERIFY(!log.Lines().isEmpty());
        QCOMPARE(log.Lines().size(), 1);
    }

    void testMessageTooLongForTheSystemLeavesALine()
    {
        const ReplacedOpener opener("exit 0\n");
        const LogCapture log;
        MailSender().SendMail(Recipient, QString(), QStringLiteral("Secret ").repeated(30000));
        QCOMPARE(log.Lines().size(), 1);
        const QString line = log.Lines().first();
        QVERIFY2(line.contains(QStringLiteral("mailto:info@maker.example - the message of 270")) &&
                     line.contains(QStringLiteral("longer")) &&
                     !line.contains(QStringLiteral("Secret")),
                 qPrintable(line));
    }

    void testSystemWithoutOpenerRefuses()
    {
        const QTemporaryDir folder;
        const QByteArray path = qgetenv("PATH");
        const QScopeGuard restorePath([&path] { qputenv("PATH", path); });
        qputenv("PATH", folder.path().toUtf8());
        QVERIFY(!MailSender::SystemOpener()("mailto:info@maker.example"));
    }

#endif

    void testRefusedAddressLeavesALineWithoutTheCustomersData()
    {
        isOpenable = false;
        QTest::ignoreMessage(
            QtWarningMsg,
            "No program opened mailto:info@maker.example - install a mail program and make it the "
            "system's program for mail addresses.");
        sender.SendMail(Recipient, QStringLiteral("Secret"), QStringLiteral("Secret"));
        QCOMPARE(opened.size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestMailSender)
#include "TestMailSender.moc"
