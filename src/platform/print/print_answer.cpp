// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/print_answer.h"

#include <QList>
#include <QtGlobal>
#include <algorithm>
#include <array>

#include "platform/log.h"
#include "print_helper/protocol.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kFields = 3;         // word, queue, reason
constexpr qsizetype kLongestText = 300;  // characters, so that a box stays on the screen

struct Sentence {
    const char* word = nullptr;
    QStringView text;  // %1 is the name of the queue
};

constexpr std::array<Sentence, 8> kSentences{{
    {print_helper::kNoService,
     u"印刷サービス（CUPS）に接続できません。\r\nサービスが動いているか確かめてから、もう一度印刷してください"
     u"。"},
    {print_helper::kNoPrinter, u"通常使うプリンターが設定されていません。"},
    {print_helper::kNotPainted, u"印刷するページを作れませんでした。"},
    {print_helper::kRejecting, u"プリンター「%1」は印刷を受け付けていません。"},
    {print_helper::kForbidden, u"プリンター「%1」の使用が許可されていません。"},
    {print_helper::kRefused, u"プリンター「%1」に印刷できませんでした。"},
    {print_helper::kAborted, u"プリンター「%1」が印刷を中止しました。"},
    {print_helper::kNotWritten,
     u"PDFを保存できませんでした。\r\n書き込めるフォルダーと、空き容量を確かめてください。"},
}};

PrintNews FailedBecause(const QString& reason) {
    return {PrintStage::Failed, reason};
}

}  // namespace

PrintNews NewsFrom(const QByteArray& line) {
    const QList<QByteArray> fields = line.split(print_helper::kAnswerJoint);
    if (fields.size() == kFields && fields[0] == print_helper::kAccepted) {
        return {PrintStage::Accepted, {}};
    }
    const auto sentence = std::find_if(
        kSentences.begin(), kSentences.end(),
        [&fields](const Sentence& known) { return fields.size() == kFields && fields[0] == known.word; });
    if (sentence == kSentences.end()) {
        qCWarning(PlatformLog, "tickwell-print wrote an unknown answer: %s",
                  line.left(kLongestText).constData());
        return NewsOfDeadHelper();
    }
    const QString queue = QString::fromUtf8(fields[1]).left(kLongestText);
    const QString said = QString::fromUtf8(fields[2]).left(kLongestText).trimmed();
    QString reason = sentence->text.toString().replace(u"%1"_s, queue);
    if (!said.isEmpty() && fields[0] != print_helper::kNoPrinter) {
        reason += u"\r\n理由："_s + said;
    }
    PrintNews news = FailedBecause(reason);
    news.noPrinter = fields[0] == print_helper::kNoPrinter || fields[0] == print_helper::kNoService;
    return news;
}

PrintNews NewsOfMissingHelper(const QString& path) {
    return FailedBecause(u"印刷プログラムを起動できませんでした。\r\n"_s + path);
}

PrintNews NewsOfDeadHelper() {
    return FailedBecause(u"印刷プログラムが途中で終了したため、印刷できませんでした。"_s);
}

}  // namespace tickwell::platform
