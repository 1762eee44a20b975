// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::remote {

// What the program has on the session bus while it accepts commands. The name is the program's id on the
// desktop. The first program that starts has it; the next one gets it when that program ends.

inline constexpr auto kService = "local.tickwell.tickwell";
inline constexpr auto kPath = "/local/tickwell/tickwell";
inline constexpr auto kInterface = "local.tickwell.tickwell";

/// The interface as introspection shows it.
inline constexpr auto kIntrospection = R"(  <interface name="local.tickwell.tickwell">
    <method name="Show">
      <arg name="function" type="s" direction="in"/>
    </method>
    <method name="Stopwatch">
      <arg name="action" type="s" direction="in"/>
      <arg name="milliseconds" type="i" direction="out"/>
    </method>
    <method name="Timer">
      <arg name="milliseconds" type="i" direction="in"/>
      <arg name="name" type="s" direction="in"/>
      <arg name="id" type="u" direction="out"/>
    </method>
    <method name="Today">
      <arg name="names" type="as" direction="out"/>
    </method>
    <method name="ComeForward">
      <arg name="menu" type="b" direction="in"/>
    </method>
  </interface>
)";

}  // namespace tickwell::remote
