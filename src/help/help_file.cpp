// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_file.h"

#include <QFileInfo>
#include <QStringDecoder>

#include "core/errors.h"
#include "core/regular_file.h"
#include "help/help_complexity.h"

namespace tickwell::help {

namespace {

constexpr qint64 kLargest = qint64{512} << 10;  // bytes; ten times the size of the delivered help
constexpr QStringView kRemedy = u"\r\n元の Help.hlp に置き換えてください。";

}  // namespace

QString ReadHelpFile(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    const FileContents file = ReadRegularFile(path, kLargest);
    if (file.problem == FileProblem::TooLarge) {
        throw RunTimeError(name + u" を読み込めません。\r\n" + file.reason + kRemedy);
    }
    if (file.problem != FileProblem::None || file.bytes.isEmpty()) {
        throw RunTimeError(name + u" を読み込めません。");
    }
    // Compiled help files of other systems have the same name and contain NUL characters.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);  // rejects a cut-off end
    QString text = decoder(file.bytes);
    if (decoder.hasError() || text.contains(QChar::Null)) {
        throw RunTimeError(name + u" はヘルプの形式ではありません。");
    }
    if (!IsEasyToShow(text)) {
        throw RunTimeError(name + u" は構造が複雑すぎるため、表示できません。" + kRemedy);
    }
    return text;
}

}  // namespace tickwell::help
