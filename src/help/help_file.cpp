// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_file.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>

#include "core/errors.h"

namespace tickwell {

namespace {

constexpr qint64 kLargest = qint64{16} * 1024 * 1024;  // bytes; ours has a hundredth of a hundredth of it

}  // namespace

QString ReadHelpFile(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    // A pipe of this name would hold the program up for ever.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        throw RunTimeError(name + u" を読み込めません。");
    }
    const QByteArray bytes =
        file.read(std::min(file.size(), kLargest) + 1);  // room is made for all that is asked for
    if (bytes.isEmpty() || file.error() != QFileDevice::NoError) {
        throw RunTimeError(name + u" を読み込めません。");
    }
    // Compiled help files of other systems bear the same name, and are full of NUL.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);  // or it waits for more
    QString text = decoder(bytes);
    if (decoder.hasError() || text.contains(QChar::Null) || bytes.size() > kLargest) {
        throw RunTimeError(name + u" はヘルプの形式ではありません。");
    }
    return text;
}

}  // namespace tickwell
