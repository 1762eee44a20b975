// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// The statements that make an empty day database: data/DayDate.schema.sql as it was when the program was
/// built.
const char* SchemaScript();

}  // namespace tickwell
