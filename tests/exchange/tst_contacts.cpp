// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/contacts.h"

#include <QTest>

#include "core/errors.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::exchange;

namespace {

/// The entries as "name|days|state" and how many contacts have no birthday, or "!" and the reason.
QStringList Read(const QByteArray& file) {
    const std::atomic<bool> isGivenUp = false;
    QStringList texts;
    try {
        const Offer offer = ReadContacts(file, isGivenUp);
        for (const Entry& entry : offer.entries) {
            texts.append(entry.row.name + u'|' + WhenOf(entry) + u'|' + StateText(entry));
        }
        texts.append(QString::number(offer.others));
    } catch (const RunTimeError& error) {
        texts.append(u'!' + error.Reason());
    }
    return texts;
}

QByteArray Card(const QByteArray& lines, const QByteArray& version = "3.0") {
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines + "\r\nEND:VCARD\r\n";
}

}  // namespace

/// Birthdays of contacts.
class TstContacts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void BirthdaysAreRead_data();
    void BirthdaysAreRead();
    void UnreadableBirthdaysAreRefused_data();
    void UnreadableBirthdaysAreRefused();
    void ManyContactsAreRead();
    void FilesAreRefused_data();
    void FilesAreRefused();
};

void TstContacts::BirthdaysAreRead_data() {
    QTest::addColumn<QByteArray>("card");
    QTest::addColumn<QString>("entry");
    const auto row = [](const char* name, const QByteArray& lines, const char* version,
                        const QString& entry) { QTest::newRow(name) << Card(lines, version) << entry; };
    const QString usual = u"山田太郎の誕生日|毎年 5月3日|新しい"_s;
    row("with hyphens", "FN:山田太郎\r\nBDAY:1990-05-03", "3.0", usual);
    row("without", "FN:山田太郎\r\nBDAY:19900503", "4.0", usual);
    row("without a year", "FN:山田太郎\r\nBDAY:--0503", "4.0", usual);
    row("without a year, with hyphens", "FN:山田太郎\r\nBDAY:--05-03", "3.0", usual);
    row("with a time", "FN:山田太郎\r\nBDAY;VALUE=date-time:1990-05-03T10:00:00Z", "3.0", usual);
    row("with a time without hyphens", "FN:山田太郎\r\nBDAY:19900503T100000+0900", "4.0", usual);
    row("with a year that means none", "FN:山田太郎\r\nBDAY;X-APPLE-OMIT-YEAR=1604:1604-05-03", "3.0", usual);
    row("in a group, after other lines",
        "N:山田;太郎;;;\r\nitem1.fn;CHARSET=UTF-8:山田太郎\r\nBDAY:1990-05-03", "3.0", usual);
    row("folded", "FN:山田\r\n 太郎\r\nBDAY:1990-\r\n 05-03", "3.0", usual);
    row("the first of two names", "FN:山田太郎\r\nFN:太郎\r\nBDAY:1990-05-03", "4.0", usual);
    row("escapes", "FN:山田\\, 太郎\r\nBDAY:1990-05-03", "3.0", u"山田, 太郎の誕生日|毎年 5月3日|新しい"_s);
    row("29 February", "FN:a\r\nBDAY:--0229", "4.0", u"aの誕生日|毎年 2月29日|新しい"_s);
}

void TstContacts::BirthdaysAreRead() {
    QFETCH(QByteArray, card);
    QFETCH(QString, entry);
    QCOMPARE(Read(card), (QStringList{entry, u"0"_s}));
}

void TstContacts::UnreadableBirthdaysAreRefused_data() {
    QTest::addColumn<QByteArray>("card");
    QTest::addColumn<QString>("entry");
    for (const char* value : {"1990", "1990-05", "---03", "--05", "1990-02-30", "1990-5-3", "unknown",
                              "90-05-03", "0503", "-0503"}) {
        QTest::newRow(value) << Card(QByteArray("FN:a\r\nBDAY:") + value)
                             << u"aの誕生日|%1|取り込めません：月日が読めない誕生日"_s.arg(
                                    QLatin1StringView(value));
    }
    QTest::newRow("a text") << Card("FN:a\r\nBDAY;VALUE=text:1990-05-03")
                            << u"aの誕生日|1990-05-03|取り込めません：月日が読めない誕生日"_s;
    QTest::newRow("no name") << Card("BDAY:1990-05-03")
                             << u"の誕生日|1990-05-03|取り込めません：名前のない連絡先"_s;
    QTest::newRow("version 2.1") << Card("FN:a\r\nBDAY:1990-05-03", "2.1")
                                 << u"aの誕生日|1990-05-03|取り込めません：vCard 3.0か4.0ではない連絡先"_s;
}

void TstContacts::UnreadableBirthdaysAreRefused() {
    QFETCH(QByteArray, card);
    QFETCH(QString, entry);
    QCOMPARE(Read(card), (QStringList{entry, u"0"_s}));
}

void TstContacts::ManyContactsAreRead() {
    const QByteArray photo =
        "PHOTO;ENCODING=b:" + QByteArray("QUJD"_ba.repeated(18) + "\r\n ").repeated(5000) + "\r\n";
    QCOMPARE(Read(Card("FN:a\r\nBDAY:1990-05-03") + Card("FN:b") + Card(photo + "FN:c\r\nBDAY:--1224") +
                  Card("FN:d\r\nBDAY:")),
             (QStringList{u"aの誕生日|毎年 5月3日|新しい"_s, u"cの誕生日|毎年 12月24日|新しい"_s, u"2"_s}));
}

void TstContacts::FilesAreRefused_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << ""_ba << u"!vCardのファイルではありません。"_s;
    QTest::newRow("a calendar") << "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n"_ba
                                << u"!vCardのファイルではありません。"_s;
    QTest::newRow("cut off") << "BEGIN:VCARD\r\nFN:a\r\n"_ba
                             << u"!ファイルが途中で終わっています（2行目の連絡先）。"_s;
    QTest::newRow("one inside another")
        << "BEGIN:VCARD\r\nFN:a\r\nBEGIN:VCARD\r\n"_ba << u"!1行目の連絡先が終わっていません。"_s;
    QTest::newRow("a long line") << Card("FN:" + QByteArray(70'000, 'a'))
                                 << u"!3行目が長すぎます（64 KiBまで）。"_s;
    QTest::newRow("no UTF-8") << Card("FN:\x93\xFA") << u"!3行目がUTF-8ではありません。"_s;
}

void TstContacts::FilesAreRefused() {
    QFETCH(QByteArray, file);
    QTEST(Read(file).constLast(), "reason");
}

QTEST_GUILESS_MAIN(TstContacts)
#include "tst_contacts.moc"
