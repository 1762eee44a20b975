// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::remote {

// What the program registers on the session bus while it accepts commands. The name is the program's desktop
// id. The first instance owns it; the next one inherits it when that instance ends.

inline constexpr auto kService = "local.tickwell.tickwell";
inline constexpr auto kPath = "/local/tickwell/tickwell";
inline constexpr auto kInterface = "local.tickwell.tickwell";

/// The interface as reported by introspection.
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
