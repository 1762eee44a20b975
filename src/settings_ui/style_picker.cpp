// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/style_picker.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "controls/access_keys.h"
#include "controls/announcer.h"
#include "controls/control_making.h"
#include "lines/line_look.h"
#include "settings_ui/colour_picking.h"
#include "settings_ui/picked_style.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSampleRoom = 3;  // height of the sample, in text lines of the dialog

QIcon ColorIcon(qint32 color, QSize size) {
    QPixmap picture(size);
    picture.fill(lines::ColorFromNumber(color));
    QPainter painter(&picture);
    painter.setPen(Qt::gray);
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    return picture;
}

}  // namespace

StylePicker::StylePicker(Handlers& handlers, const QString& title, const LineStyle& stored, qint32 backColor,
                         QWidget* parent)
    : QDialog(parent),
      m_handlers(handlers),
      m_stored(stored),
      m_offered(OfferedStyle(stored)),
      m_backColor(backColor),
      m_color(stored.color),
      m_family(controls::Named(new QFontComboBox(this), u"Family"_s, u"フォント"_s)),
      m_size(controls::Named(new QSpinBox(this), u"Size"_s, u"大きさ"_s)),
      m_bold(controls::Named(new QCheckBox(u"太字"_s, this), u"Bold"_s)),
      m_italic(controls::Named(new QCheckBox(u"斜体"_s, this), u"Italic"_s)),
      m_strikethrough(controls::Named(new QCheckBox(u"取り消し線"_s, this), u"Strikethru"_s)),
      m_underline(controls::Named(new QCheckBox(u"下線"_s, this), u"UnderLine"_s)),
      m_colorButton(controls::MakeButton(u"Color"_s, u"色"_s, this, handlers, [this] { Color_Click(); })),
      m_sample(controls::Named(new QLabel(u"文字サンプル Aa123"_s, this), u"Sample"_s)) {
    setObjectName(u"StylePicker"_s);
    setWindowTitle(title);
    MakeControls();
    LoadControls();
    Connect();
    ShowSample();
    m_family->setFocus();
}

QWidget* StylePicker::MakeEffects() {
    auto* frame = controls::Named(new QGroupBox(u"飾り"_s, this), u"Effects"_s);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(m_bold, 0, 0);
    grid->addWidget(m_italic, 0, 1);
    grid->addWidget(m_underline, 1, 0);
    grid->addWidget(m_strikethrough, 1, 1);
    return frame;
}

void StylePicker::MakeControls() {
    controls::AnnounceChoices(*m_family);
    m_family->setEditable(false);  // only installed fonts can be chosen
    m_family->setFontFilters(QFontComboBox::ScalableFonts);
    m_size->setRange(kSmallestSize, kLargestSize);
    m_size->setSuffix(u" ポイント"_s);
    m_colorButton->setAutoDefault(false);
    m_sample->setAlignment(Qt::AlignCenter);
    m_sample->setAutoFillBackground(true);
    m_sample->setFixedHeight(fontMetrics().height() * kSampleRoom);
    // A large font must not enlarge the dialog.
    m_sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QLayout* buttons = MakeButtons();
    auto* fields = new QFormLayout;
    fields->addRow(u"フォント"_s, m_family);
    fields->addRow(u"大きさ"_s, m_size);
    fields->addRow(u"文字の色"_s, m_colorButton);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(fields);
    rows->addWidget(MakeEffects());
    rows->addWidget(m_sample);
    rows->addLayout(buttons);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* StylePicker::MakeButtons() {
    auto* ok = controls::MakeButton(u"Command1"_s, u"OK"_s, this, m_handlers, [this] { accept(); });
    auto* cancel =
        controls::MakeButton(u"Command2"_s, u"キャンセル"_s, this, m_handlers, [this] { reject(); });
    ok->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    return buttons;
}

void StylePicker::LoadControls() {
    m_family->setCurrentFont(QFont(m_offered.fontName));
    m_size->setValue(m_offered.fontSize);
    m_bold->setChecked(m_offered.bold);
    m_italic->setChecked(m_offered.italic);
    m_strikethrough->setChecked(m_offered.strikethrough);
    m_underline->setChecked(m_offered.underline);
    m_offered = Shown();  // Qt replaces a font that is not scalable by another one
}

void StylePicker::Connect() {
    const auto show = [this] { ShowSample(); };
    m_handlers.Connect(m_family, &QFontComboBox::currentFontChanged, this, show);
    m_handlers.Connect(m_size, &QSpinBox::valueChanged, this, show);
    for (const QCheckBox* box : {m_bold, m_italic, m_strikethrough, m_underline}) {
        m_handlers.Connect(box, &QCheckBox::clicked, this, show);
    }
}

LineStyle StylePicker::Shown() const {
    LineStyle style;
    style.fontName = m_family->currentFont().family();
    style.fontSize = static_cast<qint16>(m_size->value());
    style.color = m_color;
    style.bold = m_bold->isChecked();
    style.italic = m_italic->isChecked();
    style.strikethrough = m_strikethrough->isChecked();
    style.underline = m_underline->isChecked();
    return style;
}

LineStyle StylePicker::Picked() const {
    return PickedStyle(m_stored, m_offered, Shown());
}

void StylePicker::Color_Click() {
    OpenColourPicker(m_handlers, u"文字の色"_s, m_color, this, [this](qint32 color) {
        m_color = color;
        ShowSample();
    });
}

void StylePicker::ShowSample() {
    const QColor color = lines::ColorFromNumber(m_color);
    m_colorButton->setIcon(ColorIcon(m_color, m_colorButton->iconSize()));
    controls::SetCaption(*m_colorButton, color.name().toUpper());
    m_colorButton->setAccessibleName(u"文字の色 "_s + color.name().toUpper());
    m_sample->setFont(lines::FontOf(Picked()));
    QPalette palette = m_sample->palette();
    palette.setColor(QPalette::WindowText, color);
    palette.setColor(QPalette::Window, lines::ColorFromNumber(m_backColor));
    m_sample->setPalette(palette);
}

}  // namespace tickwell::settings_ui
