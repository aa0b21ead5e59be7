"""The faults that can be planted in a C++ source."""

import re
from typing import NamedTuple

from scanner import (BRACKETS, CODE, OUTSIDE, TYPE, VALUES, closing, has_blanks_around,
                     template_arguments, tokens)

COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
LOGIC = {"&&": "||", "||": "&&"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "|": "&", "&": "|",
              "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|="}
STEPS = {"++": "--", "--": "++"}
TRUTHS = {"true": "false", "false": "true"}

TEXT_KINDS = ("text", "raw", "letter")
ASSERTIONS = re.compile(r"assert|static_assert|Q_ASSERT\w*|Q_UNREACHABLE|alignas")
# Results that `return {}` gives as well.
EMPTY_RESULT = re.compile(r"\{\}|\*this|std::nullopt|[\w:]+(\{\}|\(\))")
# Words that open a statement which is no expression.
NO_EXPRESSION = {"if", "for", "while", "switch", "do", "case", "default", "else", "using", "static",
                 "const", "constexpr", "auto", "goto", "try", "struct", "class", "enum", "return",
                 "typedef", "template", "delete", "extern", "thread_local", "namespace"}


class Fault(NamedTuple):
    """`source[start:end]` becomes `new`."""

    start: int
    end: int
    new: str
    kind: str


class Source:
    """A source, its tokens, and which of them may be altered."""

    def __init__(self, text):
        self.text = text
        self.tokens = tokens(text)
        self.left_alone = template_arguments(text, self.tokens) | set(self._assertions())
        self.constants = set(self._initialisers())

    def _assertions(self):
        for index, token in enumerate(self.tokens[:-1]):
            if ASSERTIONS.fullmatch(token.text) and self.tokens[index + 1].text == "(":
                yield from range(index, closing(self.tokens, index + 1) + 1)

    def _initialisers(self):
        """What stands after the `=` of a constant or a member, outside of all statements."""
        after = False
        for index, token in enumerate(self.tokens):
            if token.scope not in (OUTSIDE, TYPE) or token.text in (";", "{", "}"):
                after = False
            elif token.text == "=" and token.depth == 0:
                # `= 0` of a function isn't a value.
                after = self.tokens[index - 1].text not in (")", "const", "noexcept", "override")
            elif after:
                yield index

    def values(self):
        """The indices of the tokens that stand in statements or in values."""
        for index, token in enumerate(self.tokens):
            if index not in self.left_alone and (token.scope in (CODE, VALUES) or
                                                 index in self.constants):
                yield index

    def between(self, first, last):
        """The text from the token `first` to the token `last`."""
        return self.text[self.tokens[first].start:self.tokens[last].end]


def changed(token, new, kind):
    return Fault(token.start, token.end, new, kind)


# ---- Single tokens --------------------------------------------------------------------------------


def changed_number(text):
    """One more; hexadecimal stays hexadecimal, and a suffix stays."""
    hexadecimal = re.fullmatch(r"(0[xX])([0-9a-fA-F']+)([uUlLzZ]*)", text)
    if hexadecimal:
        base, digits, suffix = hexadecimal.groups()
        return f"{base}{int(digits.replace(chr(39), ''), 16) + 1:X}{suffix}"
    decimal = re.fullmatch(r"(\d[\d']*)(.*)", text)
    if not decimal or text.lower().startswith("0b"):
        return None
    return f"{int(decimal.group(1).replace(chr(39), '')) + 1}{decimal.group(2)}"


def changed_text(token):
    if token.kind == "letter":
        opening = token.text.index("'")
        other = "-" if token.text[opening:] == "'~'" else "~"
        return f"{token.text[:opening]}'{other}'"
    if token.kind == "raw":
        opening = token.text.index("(") + 1
        return f"{token.text[:opening]}~{token.text[opening:]}"
    return token.text[:-1] + '~"'


def literals(source):
    for index in source.values():
        token = source.tokens[index]
        if token.kind in TEXT_KINDS:
            yield changed(token, changed_text(token), "text")
        elif token.kind == "number":
            new = changed_number(token.text)
            if new:
                yield changed(token, new, "number")
        elif token.text in TRUTHS:
            yield changed(token, TRUTHS[token.text], "truth")


def is_unary_minus(source, index):
    before, token = source.tokens[index - 1], source.tokens[index]
    if token.text != "-" or has_blanks_around(source.text, token):
        return False
    return before.text == "return" or before.kind == "sign" and before.text not in (")", "]")


def operators(source):
    for index in source.values():
        token = source.tokens[index]
        if token.kind != "sign":
            continue
        if token.text == "!":
            yield changed(token, "", "negation")
        elif token.text in STEPS:
            yield changed(token, STEPS[token.text], "step")
        elif is_unary_minus(source, index):
            yield changed(token, "", "sign")
        elif has_blanks_around(source.text, token):
            yield from between_values(source, index)


def between_values(source, index):
    token = source.tokens[index]
    neighbours = {source.tokens[index - 1].kind, source.tokens[index + 1].kind}
    for table, kind in ((COMPARISONS, "comparison"), (LOGIC, "logic"), (ARITHMETIC, "arithmetic")):
        if token.text not in table:
            continue
        # Texts can be joined and nothing else.
        if table is not ARITHMETIC or not neighbours & set(TEXT_KINDS):
            yield changed(token, table[token.text], kind)


# ---- Conditions and choices -----------------------------------------------------------------------


def is_turned_elsewhere(words):
    """Whether another fault turns this condition: `a == b` becomes `a != b`, `!a` becomes `a`."""
    if set(words) & set(LOGIC):
        return False
    return bool({"==", "!="} & set(words)) or words[0] == "!" or words in (["true"], ["false"])


def conditions(source):
    found = source.tokens
    for index, token in enumerate(found[:-1]):
        if token.text not in ("if", "while") or found[index + 1].text != "(" or token.scope != CODE:
            continue
        last = closing(found, index + 1) - 1
        first, level = index + 2, found[index + 1].depth + 1
        flat = [i for i in range(first, last + 1) if found[i].depth == level]
        first = max([i + 1 for i in flat if found[i].text == ";"], default=first)
        words = [found[i].text for i in flat if i >= first]
        if words and "=" not in words and not is_turned_elsewhere(words):
            yield Fault(found[first].start, found[last].end, f"!({source.between(first, last)})",
                        "condition")


def end_of_value(found, first):
    """The index of the last token of the value that starts at `first`."""
    index = first
    while index < len(found):
        text = found[index].text if found[index].kind == "sign" else ""
        if text in BRACKETS:
            index = closing(found, index)
        elif text in (",", ";", ":", "?") or text in BRACKETS.values():
            return index - 1
        index += 1
    return len(found) - 1


def choices(source):
    """`a ? b : c` becomes `a ? c : b`; a choice in a choice is left alone."""
    found = source.tokens
    for index in source.values():
        if found[index].text != "?":
            continue
        first_end = end_of_value(found, index + 1)
        if found[first_end + 1].text != ":":
            continue
        second_end = end_of_value(found, first_end + 2)
        if found[second_end + 1].text == "?":
            continue
        first, second = source.between(index + 1, first_end), source.between(first_end + 2, second_end)
        if first != second:
            yield Fault(found[index + 1].start, found[second_end].end, f"{second} : {first}", "choice")


# ---- Statements -----------------------------------------------------------------------------------


def starts_of_statements(source):
    found = source.tokens
    for index, token in enumerate(found):
        if index == 0 or token.scope != CODE or token.depth != 0 or index in source.left_alone:
            continue
        before = found[index - 1]
        if before.kind == "sign" and before.text in (";", "{", "}", ":", ")") or before.text == "else":
            if before.text != ")" or closes_a_condition(found, index - 1):
                yield index


def closes_a_condition(found, last):
    """Whether the bracket at `last` closes that of an `if`, a `for`, a `while`."""
    for index in range(last - 1, 0, -1):
        if found[index].text == "(" and found[index].depth == found[last].depth and \
                found[index].scope == found[last].scope:
            return found[index - 1].text in ("if", "for", "while", "constexpr")
    return False


def end_of_statement(found, first):
    """The index of its `;`; None for a statement that has a body."""
    index = first
    while index < len(found):
        token = found[index]
        if token.text == ";" and token.kind == "sign":
            return index
        if token.kind == "sign" and token.text in BRACKETS:
            end = closing(found, index)
            if token.text == "{" and end > index + 1 and found[index + 1].scope == CODE:
                return None
            index = end
        index += 1
    return None


def is_declaration(source, first, last):
    """Two names in a row, or one after the mark of a type, before anything is called or set."""
    found = source.tokens
    index = first
    while index < last:
        token, after = found[index], found[index + 1]
        if token.text in ("=", "(") or token.text in ARITHMETIC and has_blanks_around(source.text, token):
            return False
        ends_type = token.kind == "name" or token.text in ("&", "*", "&&", ">", "...")
        if index > first and ends_type and after.kind == "name":
            return True
        if token.kind == "name" and after.kind == "name":
            return True
        index = closing(found, index) + 1 if token.text in ("[", "{") else index + 1
    return False


def has_an_effect(words):
    return bool({"(", "=", *STEPS} & set(words)) or bool(set(words) & {w for w in ARITHMETIC if w[-1] == "="})


def removals(source):
    """An empty block in place of a statement."""
    found = source.tokens
    for first in starts_of_statements(source):
        word = found[first]
        if word.text in NO_EXPRESSION or word.kind != "name" and word.text not in ("++", "--", "*"):
            continue
        last = end_of_statement(found, first)
        if last is None or found[last].scope != CODE or found[last].depth != 0:
            continue
        words = [token.text for token in found[first:last]]
        if word.text not in ("break", "continue", "throw"):
            if not has_an_effect(words) or is_declaration(source, first, last):
                continue
        yield Fault(word.start, found[last].end, "{}", "removal")


def results(source):
    """`return {};` in place of another result."""
    found = source.tokens
    for first in starts_of_statements(source):
        if found[first].text != "return":
            continue
        last = end_of_statement(found, first)
        if last is None or last < first + 3:  # nothing, or a single word
            continue
        if not EMPTY_RESULT.fullmatch(source.between(first + 1, last - 1)):
            yield Fault(found[first].start, found[last].end, "return {};", "result")


def early_returns(source):
    """A function without a result that returns at once."""
    found = source.tokens
    for index, token in enumerate(found[:-1]):
        if token.text != "{" or token.scope not in (OUTSIDE, TYPE) or found[index + 1].scope != CODE:
            continue
        head = index - 1
        while head >= 0 and found[head].text not in (";", "{", "}"):
            head -= 1
        words = [each.text for each in found[head + 1:index]]
        body = [each.text for each in found[index + 1:closing(found, index)]]
        if "(" in words and "void" in words[:words.index("(")] and body.count(";") > 1:
            yield Fault(token.end, token.end, " return;", "return")


# ---- Arguments ------------------------------------------------------------------------------------


def arguments_of(source, opening):
    """The arguments of the call whose bracket is at `opening`, as pairs of first and last index."""
    found, last = source.tokens, closing(source.tokens, opening)
    bounds, index = [opening], opening + 1
    while index < last:
        if found[index].kind == "sign" and found[index].text in BRACKETS:
            index = closing(found, index)
        elif found[index].text == "," and index not in source.left_alone:
            bounds.append(index)
        index += 1
    bounds.append(last)
    return [(a + 1, b - 1) for a, b in zip(bounds, bounds[1:]) if a + 1 <= b - 1]


def swapped_arguments(source):
    found = source.tokens
    for index in source.values():
        token = found[index]
        if token.text != "(" or found[index - 1].kind != "name" or found[index - 1].end != token.start:
            continue
        arguments = arguments_of(source, index)
        for (first, first_end), (second, second_end) in zip(arguments, arguments[1:]):
            one, other = source.between(first, first_end), source.between(second, second_end)
            # A lambda is hardly ever mistaken for its neighbour.
            if one != other and "{" not in one + other:
                gap = source.text[found[first_end].end:found[second].start]
                yield Fault(found[first].start, found[second_end].end, f"{other}{gap}{one}",
                            "arguments")


def faults_of(text, with_texts=True):
    """Every fault of a source, in the order in which they stand there."""
    source = Source(text)
    everything = (literals, operators, conditions, choices, removals, results, early_returns,
                  swapped_arguments)
    found = {fault for find in everything for fault in find(source)}
    return sorted(fault for fault in found if with_texts or fault.kind != "text")
