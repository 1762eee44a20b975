// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/zone_frame.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QGridLayout>
#include <QSignalBlocker>
#include <QStyle>

#include "controls/control_making.h"
#include "core/zone_time.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongestName = 40;  // characters
constexpr int kZoneWidth = 14;    // characters; the longest ids would widen the whole dialog

/// An editable combo box; its completer finds the typed text anywhere in the ids.
QComboBox* MakeZoneBox(QWidget* parent) {
    auto* box = controls::Named(new QComboBox(parent), u"Combo2"_s, u"地域"_s);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kZoneWidth);
    box->completer()->setCompletionMode(QCompleter::PopupCompletion);
    box->completer()->setFilterMode(Qt::MatchContains);
    box->lineEdit()->setPlaceholderText(u"Europe/London"_s);
    return box;
}

}  // namespace

ZoneFrame::ZoneFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"別の地域"_s, parent),
      m_clock(parts.clock),
      m_draft(draft),
      m_shows(controls::Named(new QCheckBox(u"別の地域の時刻を上段に出す"_s, this), u"Check25"_s)),
      m_zone(MakeZoneBox(this)),
      m_name(controls::Named(new QLineEdit(this), u"Text20"_s, u"地域の呼び名"_s)),
      m_hint(controls::MakeLabel(u"Label18"_s, {}, this)) {
    setObjectName(u"Frame18"_s);
    m_name->setMaxLength(kLongestName);
    parts.handlers.Connect(m_shows, &QCheckBox::clicked, this, [this] { Check25_Click(); });
    parts.handlers.Connect(m_zone, &QComboBox::editTextChanged, this,
                           [this] { Combo2_Change(m_zone->currentText()); });
    parts.handlers.Connect(m_name, &QLineEdit::textEdited, this, [this] { Text20_Change(m_name->text()); });
    Arrange();
}

void ZoneFrame::Arrange() {
    auto* zoneLabel = controls::MakeLabel(u"Label16"_s, u"地域"_s, this);
    zoneLabel->setBuddy(m_zone);
    auto* nameLabel = controls::MakeLabel(u"Label17"_s, u"呼び名"_s, this);
    nameLabel->setBuddy(m_name);
    auto* cells = new QGridLayout(this);
    cells->setColumnMinimumWidth(0, style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                        style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing) -
                                        cells->horizontalSpacing());
    cells->addWidget(m_shows, 0, 0, 1, 3);
    cells->addWidget(zoneLabel, 1, 1);
    cells->addWidget(m_zone, 1, 2);
    cells->addWidget(nameLabel, 2, 1);
    cells->addWidget(m_name, 2, 2);
    cells->addWidget(m_hint, 3, 1, 1, 2);
    cells->setColumnStretch(2, 1);
}

/// The list is loaded when the page is first shown, because most openings of the dialog do not need it.
void ZoneFrame::showEvent(QShowEvent* event) {
    if (m_zone->count() == 0) {
        const QSignalBlocker quiet(m_zone);
        const QString shown = m_zone->currentText();
        m_zone->addItems(ZoneIds());
        m_zone->view()->setMinimumWidth(m_zone->view()->sizeHintForColumn(0));  // wider than the box
        m_zone->setCurrentIndex(m_zone->findText(shown, Qt::MatchFixedString));
        m_zone->setEditText(shown);
    }
    QGroupBox::showEvent(event);
}

void ZoneFrame::Form_Load() {
    const FaceSettings& face = m_draft.further.face;
    {
        const QSignalBlocker quiet(m_zone);
        m_shows->setChecked(face.showsZone);
        m_zone->setEditText(face.zone);
        m_name->setText(face.zoneName);
    }
    m_isChanged = false;
    ShowHint();
}

void ZoneFrame::Check25_Click() {
    m_isChanged = true;
    m_draft.further.face.showsZone = m_shows->isChecked();
    ShowHint();
    if (m_shows->isChecked() && m_zone->currentText().isEmpty()) {
        m_zone->setFocus();
    }
}

void ZoneFrame::Combo2_Change(const QString& typed) {
    m_isChanged = true;
    if (const auto zone = TypedZone(typed)) {
        m_draft.further.face.zone = *zone;
    }
    ShowHint();
}

void ZoneFrame::Text20_Change(const QString& name) {
    m_draft.further.face.zoneName = name;
    ShowHint();
}

/// The hint below the fields shows what the clock will display, or why the entry is invalid.
void ZoneFrame::ShowHint() {
    for (QWidget* field :
         {static_cast<QWidget*>(m_zone), static_cast<QWidget*>(m_name), static_cast<QWidget*>(m_hint)}) {
        field->setEnabled(m_shows->isChecked());
    }
    const QString trouble = Trouble();
    const FaceSettings& face = m_draft.further.face;
    m_hint->setText(trouble.isEmpty() ? u"例：%1"_s.arg(ZoneTimeText(face.zoneName, face.zone, m_clock.Now()))
                                      : trouble);
    m_zone->setAccessibleDescription(m_hint->text());
}

QString ZoneFrame::Trouble() const {
    const QString typed = m_zone->currentText();
    if (typed.trimmed().isEmpty()) {
        return u"地域を一覧から選んでください。"_s;
    }
    const FaceSettings& face = m_draft.further.face;
    const bool isStored = typed == face.zone && !ZoneTimeText({}, face.zone, m_clock.Now()).isEmpty();
    return isStored || TypedZone(typed) ? QString() : u"この地域は一覧にありません。"_s;
}

QString ZoneFrame::Refusal() const {
    return m_shows->isChecked() && m_isChanged ? Trouble() : QString();
}

void ZoneFrame::FocusZone() {
    m_zone->setFocus();
    m_zone->lineEdit()->selectAll();
}

}  // namespace tickwell::settings_ui
