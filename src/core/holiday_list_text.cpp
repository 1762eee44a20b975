// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/holiday_list_text.h"

#include <QStringDecoder>

#include "core/byte_order_mark.h"

namespace tickwell {

namespace {

struct Decoded {
    QString text;
    bool isComplete = false;  // every byte was decoded
};

Decoded Decode(QByteArrayView bytes, const char* encoding) {
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(bytes);
    return {std::move(text), decoder.isValid() && !decoder.hasError()};
}

struct Failures {
    int count = 0;
    int first = 0;  // the line, counted from 1
};

/// Decodes each line separately: in both encodings the byte of a line feed occurs in no other character.
Failures FailuresOf(QByteArrayView bytes, const char* encoding) {
    Failures failures;
    for (int line = 1; !bytes.isEmpty(); ++line) {
        const qsizetype end = bytes.indexOf('\n') < 0 ? bytes.size() : bytes.indexOf('\n') + 1;
        if (!Decode(bytes.first(end), encoding).isComplete && ++failures.count == 1) {
            failures.first = line;
        }
        bytes = bytes.sliced(end);
    }
    return failures;
}

QStringList SplitLines(const QString& text) {
    QStringList lines = text.split(u'\n');
    if (lines.last().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

}  // namespace

TextLines DecodeLines(QByteArrayView bytes) {
    const bool isMarked = bytes.startsWith(kByteOrderMark);
    if (isMarked) {
        bytes = bytes.sliced(kByteOrderMark.size());
    }
    if (const Decoded utf8 = Decode(bytes, "UTF-8"); utf8.isComplete) {
        return {SplitLines(utf8.text), {}};
    }
    if (const Decoded shiftJis = Decode(bytes, "Shift_JIS"); shiftJis.isComplete && !isMarked) {
        return {SplitLines(shiftJis.text), {}};
    }
    const Failures utf8 = FailuresOf(bytes, "UTF-8");
    const Failures shiftJis = FailuresOf(bytes, "Shift_JIS");
    return {{}, isMarked || utf8.count < shiftJis.count ? utf8.first : shiftJis.first};
}

}  // namespace tickwell
