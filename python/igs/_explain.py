"""What error classes mean."""

from __future__ import annotations

from dataclasses import dataclass

from . import _igs


@dataclass(frozen=True)
class Explanation:
    """What people are told about an error class."""

    class_name: str
    meaning: str
    severity: str
    repair: str
    """What the repair does; empty where there is none."""
    repairable: bool
    """A repair that loses nothing can mend it."""
    consequence: bool
    """The class only says that an entity referred to has faults."""
    quality_code: str
    """What the fault is called where the quality of product data is judged; empty where it has no name."""


def explanations(pattern: str = "*") -> list[Explanation]:
    """Explains all error classes whose names a pattern fits, in which "*" is any text.

    >>> [each.class_name for each in igs.explanations("igs126*Weight")]
    ['igs126ZeroWeight', 'igs126UnsetWeight', 'igs126NegativeWeight']
    """
    return [Explanation(**each) for each in _igs.explain(pattern)]


def explain(class_name: str) -> Explanation:
    """Explains an error class.

    >>> igs.explain("igs126KnotOutOfSequence").severity
    'error'

    Raises a KeyError for a name that no error class has.
    """
    found = explanations(class_name)
    if len(found) != 1 or found[0].class_name != class_name:
        raise KeyError(f"no error class is called {class_name!r}{_igs.near_classes(class_name)}")
    return found[0]
