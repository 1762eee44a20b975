// SPDX-License-Identifier: GPL-3.0-or-later
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include "cd_helper/disc_titles.h"
#include "discs/test_disc.h"
#include "platform/drive_bench.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

const QStringList kTitles{u"夜の音楽"_s, u"月の光"_s, u"ソナタ「表」"_s, u"雨"_s};

QByteArray ShiftJis(const QString& text) {
    return QStringEncoder("Shift_JIS").encode(text);
}

/// Escapes bytes as cdrdao writes them.
QByteArray Escaped(const QByteArray& bytes) {
    QByteArray text;
    for (const char each : bytes) {
        text += '\\' + QByteArray::number(static_cast<unsigned char>(each), 8).rightJustified(3, '0');
    }
    return text;
}

QList<QByteArray> EachOf(const QStringList& titles, QByteArray (*encode)(const QString& text)) {
    QList<QByteArray> texts;
    for (const QString& title : titles) {
        texts.append(encode(title));
    }
    return texts;
}

}  // namespace

/// Titles in disc images, read by the helper with libcdio.
class TstCdTitles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TitlesAreReadFromEachKindOfSheet_data();
    void TitlesAreReadFromEachKindOfSheet();
    void WithoutTitlesThereAreNone();
    void SomeTracksHaveNone();
    void NobodyReadsThemUnasked();
    void TitlesThatBecomeKnownChangeNothingElse();
    void HostileTitlesAreHarmless_data();
    void HostileTitlesAreHarmless();
    void AHelperThatDiesOfThemLooksWithoutThem();
    void BytesOfSheetsAreRestored_data();
    void BytesOfSheetsAreRestored();
    void TitlesAreCut_data();
    void TitlesAreCut();
    void TitlesAreEncoded();

private:
    /// The titles found in a cue sheet that contains `titles`.
    QStringList Seen(const QList<QByteArray>& titles) const;

    QTemporaryDir m_folder;
};

QStringList TstCdTitles::Seen(const QList<QByteArray>& titles) const {
    TestDisc disc = ThreeTones();
    disc.titles = titles;
    DriveBench bench(WriteCueImage(disc, m_folder.path(), u"seen"_s));
    bench.wantsTitles = true;
    const CdSeen seen = bench.Look();
    return seen.status == media::CdStatus::Ready && seen.contents.tracks.size() == 3
               ? seen.titles
               : QStringList{u"no disc"_s};
}

void TstCdTitles::TitlesAreReadFromEachKindOfSheet_data() {
    QTest::addColumn<bool>("isToc");
    QTest::addColumn<QList<QByteArray>>("titles");
    const auto utf8 = EachOf(kTitles, [](const QString& text) { return text.toUtf8(); });
    const auto shiftJis = EachOf(kTitles, &ShiftJis);
    const auto escaped = EachOf(kTitles, [](const QString& text) { return Escaped(ShiftJis(text)); });
    QTest::newRow("a cue sheet in UTF-8") << false << utf8;
    QTest::newRow("a cue sheet in Shift_JIS") << false << shiftJis;
    QTest::newRow("a TOC file in UTF-8") << true << utf8;
    QTest::newRow("a TOC file in Shift_JIS") << true << shiftJis;
    QTest::newRow("a TOC file with escapes") << true << escaped;
}

void TstCdTitles::TitlesAreReadFromEachKindOfSheet() {
    QFETCH(const bool, isToc);
    TestDisc disc = ThreeTones();
    QFETCH(const QList<QByteArray>, titles);
    disc.titles = titles;
    DriveBench bench((isToc ? WriteTocImage : WriteCueImage)(disc, m_folder.path(), u"titles"_s));
    bench.wantsTitles = true;
    const CdSeen seen = bench.Look();
    QCOMPARE(seen.status, media::CdStatus::Ready);
    QCOMPARE(seen.titles, kTitles);
    QVERIFY(bench.PlayAll(0, 10) == disc.Sound(0, 10));  // titles do not affect playback
}

void TstCdTitles::WithoutTitlesThereAreNone() {
    QCOMPARE(Seen({}), QStringList());
    QCOMPARE(Seen({"", "", "", ""}), QStringList());
    QCOMPARE(Seen({" ", "\xff"}), QStringList());
}

void TstCdTitles::SomeTracksHaveNone() {
    QCOMPARE(Seen({"", "", "b"}), (QStringList{u""_s, u""_s, u"b"_s, u""_s}));
}

void TstCdTitles::NobodyReadsThemUnasked() {
    TestDisc disc = ThreeTones();
    disc.titles = {"a", "b", "c", "d"};
    DriveBench bench(WriteCueImage(disc, m_folder.path(), u"unasked"_s));
    QCOMPARE(bench.Look().titles, QStringList());
}

void TstCdTitles::TitlesThatBecomeKnownChangeNothingElse() {
    TestDisc disc = ThreeTones();
    disc.titles = {"a", "b", "c", "d"};
    DriveBench bench(WriteCueImage(disc, m_folder.path(), u"known"_s));
    bench.Look();
    QCOMPARE(bench.changes, 1);
    const quint32 number = bench.drive.Picture().number;
    QVERIFY(bench.drive.Play(0, 900));
    QVERIFY(bench.WaitForSound());
    bench.wantsTitles = true;
    QCOMPARE(bench.Look().titles, (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
    QCOMPARE(bench.changes, 2);
    QCOMPARE(bench.drive.Picture().number, number);
    QCOMPARE(bench.Mode(), media::CdMode::Playing);
}

void TstCdTitles::HostileTitlesAreHarmless_data() {
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QString>("seen");
    QTest::newRow("controls") << QByteArray("a\x1b[2J\x07z") << u"a [2J z"_s;
    QTest::newRow("a long one") << QByteArray(10'000, 'x') << QString(200, u'x');
    QTest::newRow("a long one in Japanese") << u"月"_s.repeated(10'000).toUtf8() << u"月"_s.repeated(200);
    QTest::newRow("a long one in Shift_JIS")
        << ShiftJis(u"x"_s + u"月"_s.repeated(5000)) << QString(u"x"_s + u"月"_s.repeated(199));
    QTest::newRow("no characters") << QByteArray("\xff\xfe\x80") << QString();
    QTest::newRow("turned text") << u"a\u202Egpj.exe"_s.toUtf8() << u"agpj.exe"_s;
    QTest::newRow("a line of the protocol") << QByteArray("x end 5") << u"x end 5"_s;
    QTest::newRow("markup") << QByteArray("<img src='http://a.b/c'>") << u"<img src='http://a.b/c'>"_s;
    QTest::newRow("percent signs") << QByteArray("100%41%") << u"100%41%"_s;
}

void TstCdTitles::HostileTitlesAreHarmless() {
    QFETCH(const QByteArray, title);
    QFETCH(const QString, seen);
    const QStringList titles = Seen({"a", title, "c"});
    if (title.size() < 300) {
        QCOMPARE(titles, (QStringList{u"a"_s, seen, u"c"_s, u""_s}));
    } else {  // libcdio may reject a sheet with such a line
        QVERIFY2(titles.value(1) == seen || titles == QStringList{u"no disc"_s},
                 qPrintable(titles.join(u'|')));
    }
}

/// libcdio could crash on the titles of a disc.
void TstCdTitles::AHelperThatDiesOfThemLooksWithoutThem() {
    const QString helper = m_folder.filePath(u"helper"_s);
    WriteAll(helper, "#!/bin/sh\n[ $# = 2 ] || kill -SEGV $$\nprintf 'disc\\naudio 0\\nend 9\\n'\n");
    QVERIFY(QFile::setPermissions(helper, QFile::ReadOwner | QFile::ExeOwner));
    const QString image = WriteCueImage(ThreeTones(), m_folder.path(), u"deadly"_s);
    DriveBench bench(image, helper);
    bench.wantsTitles = true;
    const CdSeen seen = bench.Look();
    QCOMPARE(seen.status, media::CdStatus::Ready);
    QCOMPARE(seen.contents.leadOut, 9);
}

void TstCdTitles::BytesOfSheetsAreRestored_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ASCII") << QByteArray("a b") << QByteArray("a b");
    QTest::newRow("UTF-8") << QByteArray("\xc3\xa6\xc2\x9c\xc2\x88") << QByteArray("\xe6\x9c\x88");
    QTest::newRow("Shift_JIS") << QByteArray("\xc2\x83\\\xc2\x95\\") << QByteArray("\x83\\\x95\\");
    QTest::newRow("not made of bytes") << QByteArray("\xe6\x9c\x88") << QByteArray("\xe6\x9c\x88");
    QTest::newRow("cut off") << QByteArray("a\xc3") << QByteArray("a\xc3");
    QTest::newRow("escapes") << QByteArray(R"(\203\134x\1)") << QByteArray("\x83\\x\\1");
    QTest::newRow("no escapes beside bytes") << QByteArray(
                                                    "\xc2\x83"
                                                    R"(\134)")
                                             << QByteArray(
                                                    "\x83"
                                                    R"(\134)");
    QTest::newRow("no byte") << QByteArray(R"(\400\189)") << QByteArray(R"(\400\189)");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void TstCdTitles::BytesOfSheetsAreRestored() {
    QFETCH(const QByteArray, text);
    QTEST(QByteArray::fromStdString(cd_helper::SheetBytes(text.toStdString())), "bytes");
}

void TstCdTitles::TitlesAreCut_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("cut");
    const auto row = [](const char* name, const QByteArray& letter) {
        QTest::newRow(name) << letter.repeated(200) << letter.repeated(200);
        QTest::addRow("%s, too long", name) << letter.repeated(201) << letter.repeated(200);
    };
    row("ASCII", "x");
    row("UTF-8", "\xe6\x9c\x88");
    row("beyond the BMP", "\xf0\xa0\xae\xb7");
    row("Shift_JIS", "\x8c\x8e");
    row("half-width kana in Shift_JIS", "\xb1");
    QTest::newRow("half a character at the end") << QByteArray("\x8c") << QByteArray("\x8c");
    QTest::newRow("damage after the cut") << QByteArray(200, 'x') + '\xff' << QByteArray(200, 'x');
}

void TstCdTitles::TitlesAreCut() {
    QFETCH(const QByteArray, bytes);
    QTEST(QByteArray::fromStdString(cd_helper::CutTitle(bytes.toStdString())), "cut");
}

void TstCdTitles::TitlesAreEncoded() {
    QCOMPARE(QByteArray::fromStdString(cd_helper::PercentEncoded("aZ09 -%\n\xe6")), "aZ09%20%2D%25%0A%E6");
}

QTEST_GUILESS_MAIN(TstCdTitles)
#include "tst_cd_titles.moc"
