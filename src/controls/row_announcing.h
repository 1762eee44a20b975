// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QTableView;

namespace tickwell::controls {

/// Makes screen readers read the current row of a table. To be called when it has received the focus: Qt
/// notifies them only of the table itself, and only after that event, so the row is announced from the event
/// loop.
void AnnounceCurrentRow(QTableView& table);

}  // namespace tickwell::controls
