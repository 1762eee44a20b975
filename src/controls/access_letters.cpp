// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/access_letters.h"

#include <algorithm>
#include <array>

namespace tickwell::controls {

namespace {

struct Letter {
    QStringView caption;
    char16_t letter;
};

constexpr std::array kLetters{
    Letter{u"ヘルプ", u'H'},
    Letter{u"適用", u'A'},
    Letter{u"スタート", u'S'},
    Letter{u"ストップ", u'S'},
    Letter{u"リセット", u'R'},
    Letter{u"ラップ", u'L'},
    Letter{u"印刷", u'P'},
    Letter{u"追加", u'A'},
    Letter{u"編集", u'E'},
    Letter{u"削除", u'D'},
    Letter{u"検索", u'F'},
    Letter{u"検索開始", u'F'},
    Letter{u"追加/変更>>", u'A'},
    Letter{u"全選", u'A'},
    Letter{u"全解", u'N'},
    Letter{u"今日", u'T'},
    Letter{u"開→", u'O'},
    Letter{u"←閉", u'O'},
    Letter{u"休/半日削除", u'R'},
    Letter{u"連絡先", u'T'},
    Letter{u"試聴", u'L'},
    Letter{u"読み込む...", u'R'},
    Letter{u"取り除く", u'D'},
    Letter{u"表示形式", u'V'},
    Letter{u"リピート", u'R'},
    Letter{u"年", u'Y'},
    Letter{u"月", u'M'},
    Letter{u"日", u'D'},
    Letter{u"時間", u'T'},
    Letter{u"分", u'M'},
    Letter{u"秒後", u'E'},
    Letter{u"記念日の名前", u'N'},
    Letter{u"記念日名", u'N'},
    Letter{u"太字", u'B'},
    Letter{u"斜体", u'I'},
    Letter{u"下線", u'U'},
    Letter{u"カレンダー", u'C'},
    Letter{u"環境設定", u'S'},
    Letter{u"ﾍﾙﾌﾟ", u'H'},
    Letter{u"終了", u'X'},
    Letter{u"バージョン情報", u'A'},
    Letter{u"ツール", u'T'},
    Letter{u"ﾃﾞｼﾞﾀﾙ時計", u'D'},
    Letter{u"Windows時計", u'W'},
    Letter{u"ﾀｲﾏｰ", u'M'},
    Letter{u"ｽﾄｯﾌﾟｳｫｯﾁ", u'P'},
    Letter{u"ﾊﾞｯﾃﾘｰ監視", u'B'},
    Letter{u"CDﾌﾟﾚｰﾔｰ", u'L'},
    Letter{u"ﾀｽｸﾊﾞｰ格納", u'K'},
    Letter{u"操作ｳｨﾝﾄﾞｳの表示", u'O'},
};

constexpr std::array kByEnterOrEsc{QStringView(u"OK"), QStringView(u"キャンセル"), QStringView(u"ｷｬﾝｾﾙ"),
                                   QStringView(u"確認")};

}  // namespace

QChar SuitingLetter(QStringView caption) {
    const auto found = std::find_if(kLetters.begin(), kLetters.end(),
                                    [caption](const Letter& each) { return each.caption == caption; });
    return found == kLetters.end() ? QChar() : QChar(found->letter);
}

bool TakesLetter(QStringView caption) {
    return std::any_of(caption.begin(), caption.end(), [](QChar each) { return each.isLetter(); }) &&
           std::find(kByEnterOrEsc.begin(), kByEnterOrEsc.end(), caption) == kByEnterOrEsc.end();
}

}  // namespace tickwell::controls
