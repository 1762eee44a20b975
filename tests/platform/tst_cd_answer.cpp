// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/disc/cd_answer.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

const media::CdContents kMixed{{{0, false}, {450, true}, {650, true}}, 900};

CdSeen Disc(const media::CdContents& contents) {
    return {media::CdStatus::Ready, contents, {}};
}

CdSeen Titled(const media::CdContents& contents, const QStringList& titles) {
    return {media::CdStatus::Ready, contents, titles};
}

}  // namespace

/// Parsing the output of the disc helper.
class TstCdAnswer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnswersAreRead_data();
    void AnswersAreRead();
    void TitlesAreRead_data();
    void TitlesAreRead();
    void ADiscOfNinetyNineTracksIsRead();
    void ContentsAreWrittenAsText();
};

void TstCdAnswer::AnswersAreRead_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<CdSeen>("seen");
    const CdSeen notReady;
    const auto row = [](const char* name, const QByteArray& answer, const CdSeen& seen) {
        QTest::newRow(name) << answer << seen;
    };
    row("no disc", "no-disc\n", {media::CdStatus::NoDisc, {}});
    row("tray open", "tray-open\n", {media::CdStatus::TrayOpen, {}});
    row("not ready", "not-ready\n", notReady);
    row("no right to read it", "no-right\n", {media::CdStatus::Failed, {}});
    row("a disc", "disc\ndata 0\naudio 450\naudio 650\nend 900\n", Disc(kMixed));
    row("one audio track", "disc\naudio 0\nend 1\n", Disc({{{0, true}}, 1}));
    row("sound before the first track", "disc\naudio 33\nend 90\n", Disc({{{33, true}}, 90}));
    row("nothing", "", notReady);
    row("truncated within a line", "disc\naudio 0\nend 9", notReady);
    row("truncated after a line", "disc\naudio 0\n", notReady);
    row("a disc without tracks", "disc\nend 900\n", notReady);
    row("a disc without anything", "disc\n", notReady);
    row("starts that do not rise", "disc\naudio 10\naudio 10\nend 90\n", notReady);
    row("an end not after the last track", "disc\naudio 10\nend 10\n", notReady);
    row("a negative start", "disc\naudio -150\nend 10\n", notReady);
    row("longer than any disc", "disc\naudio 0\nend 450001\n", notReady);
    row("text after the end", "disc\naudio 0\nend 10\naudio 20\n", notReady);
    row("an unknown kind of track", "disc\nvideo 0\nend 10\n", notReady);
    row("a line of three words", "disc\naudio 0 0\nend 10\n", notReady);
    row("not a number", "disc\naudio x\nend 10\n", notReady);
    row("text after a word", "no-disc\nno-disc\n", notReady);
    row("an unknown word", "hello\n", notReady);
}

void TstCdAnswer::AnswersAreRead() {
    QFETCH(QByteArray, answer);
    QFETCH(CdSeen, seen);
    QVERIFY(SeenFrom(answer) == seen);
}

void TstCdAnswer::TitlesAreRead_data() {
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<CdSeen>("seen");
    const auto row = [](const char* name, const QByteArray& lines, const CdSeen& seen) {
        QTest::newRow(name) << lines << seen;
    };
    row("all", "title 0 Night\ntitle 1 %E6%9C%88\ntitle 2 x%20y\ntitle 3 z\n",
        Titled(kMixed, {u"Night"_s, u"月"_s, u"x y"_s, u"z"_s}));
    row("one of a track", "title 2 b\n", Titled(kMixed, {u""_s, u""_s, u"b"_s, u""_s}));
    row("one that cannot be shown", "title 2 %FF\n", Disc(kMixed));
    row("a track that does not exist", "title 4 b\n", CdSeen());
    row("a negative track", "title -1 b\n", CdSeen());
    row("twice", "title 2 b\ntitle 2 c\n", CdSeen());
    row("in another order", "title 2 b\ntitle 1 c\n", CdSeen());
    row("no text", "title 1 \n", CdSeen());
    row("no track", "title b\n", CdSeen());
    row("two texts", "title 1 b c\n", CdSeen());
    row("a text that is not encoded", "title 1 b,c\n", CdSeen());
    row("a track after it", "title 1 b\naudio 900\n", CdSeen());
    row("another word", "titles 1 b\n", CdSeen());
}

void TstCdAnswer::TitlesAreRead() {
    QFETCH(const QByteArray, lines);
    QFETCH(const CdSeen, seen);
    QVERIFY(SeenFrom("disc\ndata 0\naudio 450\naudio 650\nend 900\n" + lines) == seen);
    QVERIFY(SeenFrom("disc\n" + lines) == CdSeen());
}

void TstCdAnswer::ADiscOfNinetyNineTracksIsRead() {
    QByteArray answer = "disc\n";
    for (int track = 0; track < 99; ++track) {
        answer += "audio " + QByteArray::number(track * 400) + '\n';
    }
    QCOMPARE(SeenFrom(answer + "end 40000\n").contents.tracks.size(), 99);
    QVERIFY(SeenFrom(answer + "audio 39999\nend 40000\n") == CdSeen());
}

void TstCdAnswer::ContentsAreWrittenAsText() {
    QCOMPARE(ContentsText(kMixed), u"data 0,audio 450,audio 650,end 900"_s);
}

QTEST_GUILESS_MAIN(TstCdAnswer)
#include "tst_cd_answer.moc"
