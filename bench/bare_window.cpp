// SPDX-License-Identifier: GPL-3.0-or-later
// bare_window: the least that a clock window costs with Qt. Same size, same window flags, same two lines of
// text and nothing else; what the real program is measured against.

#include <QApplication>
#include <QDateTime>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWindowSize(167, 40);
constexpr int kLineHeight = kWindowSize.height() / 2;
constexpr int kTextHeight = 14;  // pixels
constexpr int kTickMilliseconds = 200;

/// Black, with the date in white above and the time in green below.
class BareWindow : public QWidget {
public:
    BareWindow()
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
          m_shown(QDateTime::currentDateTime()) {
        setFixedSize(kWindowSize);
        setAttribute(Qt::WA_OpaquePaintEvent);
        QFont lineFont = font();
        lineFont.setPixelSize(kTextHeight);
        setFont(lineFont);
        connect(&m_timer, &QTimer::timeout, this, [this] { ShowSecond(); });
        m_timer.start(kTickMilliseconds);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::black);
        painter.setPen(Qt::white);
        painter.drawText(UpperLine(), Qt::AlignCenter, m_shown.toString(u"yyyy年M月d日"_s));
        painter.setPen(Qt::green);
        painter.drawText(LowerLine(), Qt::AlignCenter, m_shown.toString(u"H時mm分ss秒"_s));
    }

private:
    QRect UpperLine() const { return {0, 0, width(), kLineHeight}; }
    QRect LowerLine() const { return {0, kLineHeight, width(), height() - kLineHeight}; }

    /// Paints the lower line anew, but only once a second.
    void ShowSecond() {
        const QDateTime now = QDateTime::currentDateTime();
        if (now.toSecsSinceEpoch() == m_shown.toSecsSinceEpoch()) {
            return;
        }
        m_shown = now;
        update(LowerLine());
    }

    QTimer m_timer;
    QDateTime m_shown;
};

}  // namespace

}  // namespace tickwell

int main(int argc, char** argv) {
    // The real program's choice of platform, so that both are measured on the same one.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    }
    const QApplication application(argc, argv);
    tickwell::BareWindow window;
    window.show();
    return QApplication::exec();
}
