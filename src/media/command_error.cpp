// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/command_error.h"

#include <algorithm>
#include <array>

namespace tickwell::media {

namespace {

struct ErrorRow {
    qint32 number = 0;
    QStringView text;
};

// kErrorDriver has no row: the driver does not report what went wrong.
constexpr std::array kTexts{
    ErrorRow{kErrorUnknownOption, u"コマンドの中に分からない言葉があります"},
    ErrorRow{kErrorUnknownCommand, u"コマンドが分かりません"},
    ErrorRow{kErrorRead, u"ディスクを読み取れません"},
    ErrorRow{kErrorUnknownDevice, u"指定されたデバイス（CDドライブなど）は開かれていません"},
    ErrorRow{kErrorNoDrive, u"CDドライブが見つかりません"},
    ErrorRow{kErrorNoCommand, u"コマンドが空です"},
    ErrorRow{kErrorReplyTooLong, u"デバイスの返事が長すぎます"},
    ErrorRow{kErrorNoAlias, u"別名が指定されていません"},
    ErrorRow{kErrorNumber, u"数値が指定されていないか、正しくありません"},
    ErrorRow{kErrorNoStatusItem, u"調べる項目が指定されていません"},
    ErrorRow{kErrorNotSupported, u"このデバイスでは使えないコマンドです"},
    ErrorRow{kErrorFileMissing, u"ファイルが見つかりません"},
    ErrorRow{kErrorNotReady, u"再生できるディスクが入っていません"},
    ErrorRow{kErrorUnknownExtension, u"この種類のファイルは再生できません"},
    ErrorRow{kErrorOutside, u"指定された曲または位置がありません"},
    ErrorRow{kErrorAliasInUse, u"この別名はすでに使われています"},
    ErrorRow{kErrorWaveTimeFormat, u"音声ファイルでは使えない時間形式です"},
    ErrorRow{kErrorDeviceInUse, u"CDドライブはすでに使われています"},
    ErrorRow{kErrorNoName, u"デバイスの名前が指定されていません"},
    ErrorRow{kErrorCdTimeFormat, u"CDでは使えない時間形式です"},
    ErrorRow{kErrorOpenQuote, u"引用符が閉じられていません"},
    ErrorRow{kErrorWordTwice, u"同じ言葉が二度使われています"},
    ErrorRow{kErrorNoWave, u"再生できる音声ファイルではありません"},
    ErrorRow{kErrorNoSound, u"音を出せません"},
};

}  // namespace

std::optional<QString> CommandErrorText(qint32 number) {
    const auto* row = std::find_if(kTexts.begin(), kTexts.end(),
                                   [number](const ErrorRow& each) { return each.number == number; });
    return row == kTexts.end() ? std::nullopt : std::optional(row->text.toString());
}

}  // namespace tickwell::media
