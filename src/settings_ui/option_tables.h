// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <array>
#include <span>

namespace tickwell::settings_ui {

/// One of several option buttons. Its index is the stored number, not its position on the screen.
struct OptionRow {
    qint32 index = 0;
    QStringView caption;
};

// The rows of each table are in screen order, top to bottom or left to right.

inline constexpr std::array kRollOptions{
    OptionRow{0, u"ロール機能を使用しない"},
    OptionRow{1, u"ロール機能を使用する"},
};

inline constexpr std::array kWipeOptions{
    OptionRow{0, u"左から右"},
    OptionRow{1, u"右から左"},
    OptionRow{2, u"上から下"},
    OptionRow{3, u"下から上"},
};

inline constexpr std::array kLanguageOptions{
    OptionRow{2, u"古代日本"},
    OptionRow{1, u"英語"},
    OptionRow{0, u"日本語"},
};

/// The captions depend on the language, see YearWordsOf.
inline constexpr std::array kYearOptions{OptionRow{0, u"平成"}, OptionRow{1, u"西暦"}};

inline constexpr std::array kStyleOptions{OptionRow{1, u"簡略表示"}, OptionRow{0, u"標準表示"}};

inline constexpr std::array kHourOptions{OptionRow{1, u"24時間制"}, OptionRow{0, u"12時間制"}};

inline constexpr std::array kChimeOptions{
    OptionRow{2, u"利用しない"},
    OptionRow{1, u"1時間おき"},
    OptionRow{0, u"30分おき"},
};

inline constexpr std::array kHolidayOptions{
    OptionRow{0, u"祝日の表を使う（従来どおり）"},
    OptionRow{1, u"法律に基づいて計算する（1948年7月20日～2100年）"},
};

inline constexpr std::array kEraOptions{
    OptionRow{0, u"平成のまま（従来どおり）"},
    OptionRow{1, u"日付に応じた元号（令和・平成・昭和・大正・明治）"},
};

/// The indices are values of UnderDays.
inline constexpr std::array kUnderOptions{OptionRow{0, u"なし"}, OptionRow{1, u"六曜"},
                                          OptionRow{2, u"旧暦"}};

/// How a text that is wider than its line is shown, by LongText.
inline constexpr std::array kLongTextOptions{OptionRow{1, u"省略記号を付ける"},
                                             OptionRow{2, u"一度だけ流して見せる"}};

/// The outline of texts on a transparent background, by TextOutline.
inline constexpr std::array kOutlineOptions{OptionRow{0, u"なし"}, OptionRow{1, u"細い"},
                                            OptionRow{2, u"太い"}};

/// How the language affects the other frames of the clock page.
struct YearWords {
    bool enabled = false;                 ///< whether this language has year, hour and display styles
    QStringView frame;                    ///< its title; empty: title and captions stay unchanged
    std::array<QStringView, 2> captions;  ///< of the year options, by index
};

/// Nothing is enabled for an unknown language.
YearWords YearWordsOf(qint32 language);

}  // namespace tickwell::settings_ui
