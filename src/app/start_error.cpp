// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/start_error.h"

#include <QFileInfo>

#include "store/day_files.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

QString At(const QString& path, const QString& whatToDo) {
    return u"場所："_s + path + u"\r\n" + whatToDo;
}

}  // namespace

void WithRemedy(const QString& remedy, const std::function<void()>& step) {
    try {
        step();
    } catch (const StartError&) {
        throw;
    } catch (const RunTimeError& error) {
        throw StartError(error.Reason(), remedy);
    }
}

QString MissingFileRemedy(const QString& path, const QString& master) {
    if (QFileInfo(path).fileName() != store::kLiveFile) {
        return At(path, master.isEmpty() ? u"このファイルをここに戻して、もう一度起動してください。"_s
                                         : master + u" をここにコピーして、もう一度起動してください。");
    }
    const QString backup = u"控えがあれば、この名前でここに戻して、もう一度起動してください。"_s;
    return At(path, master.isEmpty() ? backup
                                     : backup + u"\r\nなければ、" + master +
                                           u" をここにコピーすると、記念日がない状態で始められます。");
}

QString DayDatabaseRemedy(const QString& path) {
    return At(path,
              u"ほかのプログラムが使っていれば閉じ、読み書きできることを確かめてください。\r\n"
              u"壊れているときは、控えと置き換えてください。"_s);
}

QString ImportRemedy(const QString& staged) {
    return At(staged,
              u"書き出したものの読み込みを終えられませんでした。ほかのプログラムが使っていれば閉じ、ディスク"
              u"に空きがあることを確かめてください。\r\n"
              u"読み込みをやめるときは、このフォルダーを取り除いてください。"_s);
}

QString FolderRemedy(const QString& folder) {
    return At(folder,
              u"このフォルダーを読み書きできることと、ディスクに空きがあることを確かめてください。\r\n"
              u"別のフォルダーを使うときは、--folder で指定してください。"_s);
}

QString InstallationRemedy(const QString& path) {
    return At(path, u"Tickwell をインストールし直してください。"_s);
}

QString BadSettingRemedy(const QString& path) {
    return u"設定ファイル："_s + path +
           u"\r\nこの項目を直すか、その行を消して、もう一度起動してください。消すと既定の値になります。";
}

}  // namespace tickwell::app
