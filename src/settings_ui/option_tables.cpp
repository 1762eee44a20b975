// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/option_tables.h"

namespace tickwell::settings_ui {

YearWords YearWordsOf(qint32 language) {
    switch (language) {
        case 0:
            return {true, u"年号", {u"平成", u"西暦"}};
        case 1:
            return {true, u"月名", {u"英語", u"数字"}};
        default:
            return {};
    }
}

}  // namespace tickwell::settings_ui
