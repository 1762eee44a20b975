// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/jet/byte_view.h"

#include "days/jet/jet_error.h"

namespace tickwell {

using namespace Qt::StringLiterals;

void ByteView::FailOutside() {
    throw JetDamageError(u"範囲外の参照"_s);
}

}  // namespace tickwell
