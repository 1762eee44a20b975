// SPDX-License-Identifier: GPL-3.0-or-later
// A target needs a source file for its precompiled header to be compiled.
