"""C++ source as a list of tokens, each with the scope it stands in.

No parser: it leans on the tree's own format (.clang-format), in which an operator between two
values has blanks around it, and a bracket of a template or the mark of a pointer has none.
"""

import re
from typing import NamedTuple

# What a token stands in: namespaces, the body of a class or an enum, a list of values, statements.
OUTSIDE, TYPE, VALUES, CODE = "outside", "type", "values", "code"

PARTS = re.compile(
    r"""
    (?P<blank>\s+)
  | (?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
  | (?P<raw>(?:u8|u|U|L)?R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)")
  | (?P<text>(?:u8|u|U|L)?"(?:\\.|[^"\\\n])*")
  | (?P<letter>(?:u8|u|U|L)?'(?:\\.|[^'\\\n])+')
  | (?P<number>\.?\d(?:[eEpP][+-]|'(?=\w)|[\w.])*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<sign><<=|>>=|<=>|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

CLASS_WORDS = {"class", "struct", "enum", "union"}
BEFORE_STATEMENTS = {")", "]", "else", "do", "try", "const", "noexcept", "override", "final",
                     "mutable", ":", ";", "{", "}"}
BRACKETS = {"(": ")", "[": "]", "{": "}"}


class Token(NamedTuple):
    """A piece of the source; `depth` counts the round and square brackets open in its scope."""

    kind: str
    text: str
    start: int
    end: int
    scope: str
    depth: int


def pieces(source):
    """All parts that aren't blank, as (kind, text, start); comments and directives among them."""
    for match in PARTS.finditer(source):
        if match.lastgroup != "blank":
            yield match.lastgroup, match.group(), match.start()


def gives_a_type(words):
    """Whether the words end in `) -> Type`, the result of a function or a lambda."""
    if "->" not in words:
        return False
    arrow = len(words) - 1 - words[::-1].index("->")
    return words[arrow - 1] == ")" and not {"(", "=", "return", "."} & set(words[arrow:])


def opened_scope(words, scope):
    """What a `{` opens in `scope`, after the words since the last statement."""
    if "namespace" in words or words[:1] == ["extern"]:
        return OUTSIDE
    if CLASS_WORDS & set(words) and "(" not in words:
        return TYPE
    last = words[-1] if words else "{"
    if scope == VALUES and last not in (")", "]"):
        return VALUES
    return CODE if last in BEFORE_STATEMENTS or gives_a_type(words) else VALUES


def tokens(source):
    """The tokens without comments and directives."""
    found, words = [], []
    open_scopes = [[OUTSIDE, 0]]
    for kind, text, start in pieces(source):
        if kind in ("comment", "directive"):
            continue
        sign = text if kind == "sign" else None
        if sign in (")", "]"):
            open_scopes[-1][1] -= 1
        if sign == "}":
            closed = open_scopes.pop()[0] if len(open_scopes) > 1 else OUTSIDE
            # `: a_{1} {` and `T{1}.F()` go on after a list of values.
            words = [*words, ")"] if closed == VALUES else []
        found.append(Token(kind, text, start, start + len(text), *open_scopes[-1]))
        if sign in ("(", "["):
            open_scopes[-1][1] += 1
        if sign == "{":
            open_scopes.append([opened_scope(words, open_scopes[-1][0]), 0])
        if sign in ("{", ";"):
            words = []
        elif sign != "}":
            words.append(text)
    return found


def closing(found, opening):
    """The index of the bracket that closes the one at `opening`, or of the last token."""
    depth = 0
    for index in range(opening, len(found)):
        if found[index].kind != "sign":
            continue
        if found[index].text in BRACKETS:
            depth += 1
        elif found[index].text in BRACKETS.values():
            depth -= 1
            if depth == 0:
                return index
    return len(found) - 1


def has_blanks_around(source, token):
    return source[token.start - 1].isspace() and source[token.end:token.end + 1].isspace()


def template_arguments(source, found):
    """The indices of all tokens between the brackets of a template."""
    inside, open_brackets = set(), 0
    for index, token in enumerate(found):
        if open_brackets:
            inside.add(index)
        if token.kind != "sign":
            continue
        if token.text == "<" and not source[token.end:token.end + 1].isspace():
            open_brackets += 1
        elif open_brackets and token.text in (">", ">>"):
            open_brackets = max(0, open_brackets - len(token.text))
        elif token.text in (";", "{"):
            open_brackets = 0
    return inside
