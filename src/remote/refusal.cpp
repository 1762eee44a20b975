// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/refusal.h"

#include <algorithm>
#include <array>

namespace tickwell::remote {

using namespace Qt::StringLiterals;

namespace {

struct RefusalRow {
    Refusal refusal{};
    QStringView error;
    QStringView english;  ///< empty: the text depends on the refusal
    QStringView japanese;
};

constexpr std::array kRefusals{
    RefusalRow{Refusal::UnknownMethod, u"org.freedesktop.DBus.Error.UnknownMethod", {}, {}},
    RefusalRow{Refusal::WrongArguments, u"org.freedesktop.DBus.Error.InvalidArgs", {}, {}},
    RefusalRow{Refusal::TooManyCalls, u"org.freedesktop.DBus.Error.LimitsExceeded",
               u"The clock accepts 100 calls a second.", u"時計が受ける操作は、1秒に100回までです。"},
    RefusalRow{Refusal::StopwatchIsRunning, u"local.tickwell.tickwell.Error.StopwatchIsRunning",
               u"The stopwatch is running; stop, lap and read are possible.",
               u"ストップウォッチは動いています。stop、lap、read ができます。"},
    RefusalRow{Refusal::StopwatchIsStopped, u"local.tickwell.tickwell.Error.StopwatchIsStopped",
               u"The stopwatch is stopped; start, reset and read are possible.",
               u"ストップウォッチは止まっています。start、reset、read ができます。"},
    RefusalRow{Refusal::TimerIsRunning, u"local.tickwell.tickwell.Error.TimerIsRunning",
               u"The timer is running; another one can start when it has ended or was stopped.",
               u"タイマーは動いています。終わるか止めるまで、次のタイマーは始められません。"},
    RefusalRow{Refusal::UnknownInterface, u"org.freedesktop.DBus.Error.UnknownInterface", {}, {}},
    RefusalRow{Refusal::UnknownProperty, u"org.freedesktop.DBus.Error.UnknownProperty", {}, {}},
    RefusalRow{Refusal::ReadOnlyProperty, u"org.freedesktop.DBus.Error.PropertyReadOnly", {}, {}},
    RefusalRow{Refusal::NotPossible, u"org.freedesktop.DBus.Error.NotSupported", {}, {}},
    RefusalRow{Refusal::Failed, u"org.freedesktop.DBus.Error.Failed", {}, {}},
};

const RefusalRow& RowOf(Refusal refusal) {
    return *std::find_if(kRefusals.begin(), kRefusals.end(),
                         [refusal](const RefusalRow& row) { return row.refusal == refusal; });
}

}  // namespace

RefusedCall::RefusedCall(Refusal refusal, const QString& text)
    : m_kind(refusal),
      m_text(text.isEmpty() ? RowOf(refusal).english.toString() : text),
      m_utf8(m_text.toUtf8()) {}

QString ErrorNameOf(Refusal refusal) {
    return RowOf(refusal).error.toString();
}

QString SentenceOf(const QString& name, const QString& text, bool inJapanese) {
    const auto row = std::find_if(kRefusals.begin(), kRefusals.end(),
                                  [&name](const RefusalRow& each) { return name == each.error; });
    if (row == kRefusals.end() || row->english.isEmpty()) {
        return text;
    }
    return (inJapanese ? row->japanese : row->english).toString();
}

}  // namespace tickwell::remote
