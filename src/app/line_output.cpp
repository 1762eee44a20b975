// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/line_output.h"

#include <unistd.h>

#include <cerrno>

#include "core/errors.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kPiece = 1 << 16;  // bytes written at once

}  // namespace

bool LineOutput::Add(const QString& line) {
    m_bytes += line.toUtf8();
    m_bytes += '\n';
    return m_bytes.size() < kPiece ? m_isRead : Flush();
}

bool LineOutput::Flush() {
    for (qsizetype at = 0; m_isRead && at < m_bytes.size();) {
        const ssize_t written =
            write(m_descriptor, m_bytes.constData() + at, static_cast<std::size_t>(m_bytes.size() - at));
        if (written >= 0) {
            at += written;
        } else if (errno == EPIPE) {
            m_isRead = false;
        } else if (errno != EINTR) {
            throw RunTimeError(u"標準出力に書き込めません。\r\n"_s + qt_error_string(errno));
        }
    }
    m_bytes.clear();
    return m_isRead;
}

}  // namespace tickwell::app
