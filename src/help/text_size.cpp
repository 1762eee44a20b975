// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/text_size.h"

#include <QList>

namespace tickwell::help {

namespace {

const QList<int>& Steps() {
    static const QList<int> steps{50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};
    return steps;
}

}  // namespace

void TextSize::Grow() {
    if (!IsLargest()) {
        ++m_step;
    }
}

void TextSize::Shrink() {
    if (!IsSmallest()) {
        --m_step;
    }
}

void TextSize::Reset() {
    *this = TextSize();
}

bool TextSize::IsLargest() const {
    return m_step == Steps().size() - 1;
}

int TextSize::Percent() const {
    return Steps()[m_step];
}

}  // namespace tickwell::help
