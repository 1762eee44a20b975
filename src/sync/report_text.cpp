// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/report_text.h"

#include <QStringList>
#include <algorithm>

#include "sync/round.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostNamed = 3;      // files; a folder can contain many
constexpr qsizetype kLongestShown = 40;  // characters of a file name

QString Shown(const QString& name) {
    return name.size() <= kLongestShown ? name : name.left(kLongestShown) + u'…';
}

}  // namespace

QString ReportText(const Report& report) {
    QStringList lines;
    if (report.when.isValid()) {
        lines.append(u"最後に合わせた時刻：%1（コンピューター%2台）"_s.arg(
            report.when.toString(u"yyyy/MM/dd HH:mm"_s), QString::number(report.computers)));
    } else {
        lines.append(u"まだ合わせていません。"_s);
    }
    if (!report.problem.isEmpty()) {
        lines.append(report.problem);
    }
    for (const LeftFile& file : report.left.first(std::min(kMostNamed, report.left.size()))) {
        lines.append(u"そのままにしたファイル：%1（%2）"_s.arg(Shown(file.name), file.why));
    }
    if (report.left.size() > kMostNamed) {
        lines.append(u"ほかに%1個のファイルをそのままにしました。"_s.arg(report.left.size() - kMostNamed));
    }
    if (report.skipped > 0) {
        lines.append(u"このコンピューターだけに残した行：%1件"_s.arg(report.skipped));
    }
    return lines.join(u'\n');
}

}  // namespace tickwell::sync
