// SPDX-License-Identifier: GPL-3.0-or-later
// A target needs a source for its headers to be compiled.
