// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/byte_view.h"

#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

void ByteView::FailOutside() {
    throw JetDamageError(u"範囲外の参照"_s);
}

}  // namespace tickwell::store
