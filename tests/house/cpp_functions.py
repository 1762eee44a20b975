# SPDX-License-Identifier: GPL-3.0-or-later
"""Finds the function definitions of a C++ file and their lengths, without a compiler: clang-tidy would take a quarter of an
hour for all tests, and does not count a constructor's initialisers."""

import re
from collections import namedtuple

# Comments, strings, characters (but not the ' in 1'000) and preprocessor lines; they may contain braces.
NOT_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"([^()\s\\]{0,16})\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|'
                      r"(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.DOTALL | re.MULTILINE)
ACCESS = re.compile(r"\s*(?:public|protected|private|Q_SIGNALS)(?: Q_SLOTS)?\s*:(?!:)")
# The end of a parameter list, or of a constructor's initialisers.
AFTER_PARAMETERS = re.compile(r"[)}]\s*(?:const|noexcept|override|final|&|\s)*(?:->[^{}()]*)?$")
BLOCK = re.compile(r"(?:template\s*<.*>\s*)?(?:namespace|struct|class|union|enum|extern|else|do|try)\b", re.DOTALL)
# Statements and lambdas.
NO_FUNCTION = re.compile(r"(?:if|for|while|switch|catch|return)\b|.*\]\s*\([^()]*\)[^:]*$", re.DOTALL)

# An open brace. is_block: whether it opens a block, not a list of values; function: the start of the function whose
# body it opens, or None; parentheses: how many were open before it.
Brace = namedtuple("Brace", "is_block function parentheses")


def blanked(match):
    return re.sub(r"[^\n]", " ", match[0])


def opened_brace(code, head, at, parentheses, is_in_function):
    """The brace at `at`, given the start of the statement before it."""
    while access := ACCESS.match(code, head, at):
        head = access.end()
    before = code[head:at].strip()
    is_after_parameters = AFTER_PARAMETERS.search(before) is not None
    is_block = parentheses == 0 and (not before or is_after_parameters or BLOCK.match(before) is not None)
    is_function = is_block and is_after_parameters and not is_in_function and not NO_FUNCTION.match(before)
    return Brace(is_block, code.index(before, head) if is_function else None, parentheses)


def functions(text):
    """(line, lines) of each function that is not inside another one: its first line, and the number of lines up to its
    closing brace."""
    code = NOT_CODE.sub(blanked, text)
    found, braces = [], []
    head, parentheses = 0, 0  # where the current statement starts, and its open parentheses
    for sign in re.finditer(r"[(){};]", code):
        at = sign.start()
        if sign[0] in "()":
            parentheses += 1 if sign[0] == "(" else -1
        elif sign[0] == ";":
            head = at + 1 if parentheses == 0 else head
        elif sign[0] == "{":
            is_in_function = any(brace.function is not None for brace in braces)
            braces.append(opened_brace(code, head, at, parentheses, is_in_function))
            head = at + 1 if braces[-1].is_block else head
            parentheses = 0
        elif braces:
            brace = braces.pop()
            head = at + 1 if brace.is_block else head
            parentheses = brace.parentheses
            if brace.function is not None:
                lines = code.count("\n", brace.function, at) + 1
                found.append((code.count("\n", 0, brace.function) + 1, lines))
    return found
