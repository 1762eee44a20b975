// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::store {

/// The statements that create an empty day database: data/DayDate.schema.sql at the time of the build.
const char* SchemaScript();

}  // namespace tickwell::store
