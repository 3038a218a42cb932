"""All scenarios in their order, inside the guest. Argument: the build folder with the programs under test."""

import sys

from . import kernel
from .checks import Report


def main() -> int:
    report = Report()
    report.run(kernel.has_what_touchscreens_need)
    return 0 if report.held() else 1


if __name__ == "__main__":
    sys.exit(main())
