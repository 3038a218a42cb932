"""Expectations of scenarios, and the report of their outcomes."""

import json
import pathlib
import time
import traceback

SHARE = pathlib.Path("/mnt/share")


class Failed(Exception):
    """A check that did not hold. Its text holds what was expected and what was there."""


def expect(condition, what: str) -> None:
    if not condition:
        raise Failed(what)


def expect_equal(actual, expected, what: str) -> None:
    if actual != expected:
        raise Failed(f"{what}: {actual!r} instead of {expected!r}")


def eventually(condition, what: str, within_s: float = 20):
    """The first true value of `condition()`, asked for again and again: for what announces itself by no event."""
    deadline = time.monotonic() + within_s
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Failed(f"not within {within_s} s: {what}")
        time.sleep(0.05)


class Report:
    """Collects outcomes and notes (measured figures) and leaves them on the share after each scenario."""

    def __init__(self):
        self.outcomes = []

    def note(self, text: str) -> None:
        self.outcomes[-1]["notes"].append(text)

    def run(self, scenario, *arguments) -> None:
        """Runs one scenario; its docstring's first line is its name."""
        outcome = {"name": scenario.__doc__.strip().splitlines()[0], "notes": [], "failure": None}
        self.outcomes.append(outcome)
        began = time.monotonic()
        try:
            scenario(self, *arguments)
        except Failed as failure:
            line = traceback.extract_tb(failure.__traceback__)[1]
            outcome["failure"] = f"{failure} ({pathlib.Path(line.filename).name}:{line.lineno})"
        except Exception:  # a broken scenario is a failed one; the next still runs
            outcome["failure"] = traceback.format_exc()
        outcome["seconds"] = round(time.monotonic() - began, 1)
        (SHARE / "results.json").write_text(json.dumps(self.outcomes, indent=1))

    def held(self) -> bool:
        return all(outcome["failure"] is None for outcome in self.outcomes)
