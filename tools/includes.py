"""The fence between folders: each folder's includes against what its CMake target says it uses."""
import os
import re
from dataclasses import dataclass, field

# From the bottom upwards; whatever is in none of these rows is a program. A folder uses its own row and those above it.
ROWS = [["platform"], ["contract"], ["protocol", "driver", "session"], ["config", "firmware"], ["discovery", "providers"],
        ["calibration"], ["history"], ["app"], ["panel"]]
# Rooms with fewer doors than their row: the driver service's logic, and adapters of a library.
ONLY = [(r"driver(/.*)?$", r"(platform|contract|driver)(/.*)?$"),
        (r"providers/(?!simulated$).*", r"(platform|contract|providers/.*)$")]
GENERATED = re.compile(r"^(ui_\w+|platform_build/\w+|TouchDriver(Adaptor|Proxy))\.h$")


@dataclass
class Target:
    folder: str  # below src/
    uses: set = field(default_factory=set)  # names of touchpanel_ targets
    sources: set = field(default_factory=set)  # of a program; of a library every file that no program of its folder takes


def targets_in(folder, text):
    """The libraries and programs that the text of one folder's CMakeLists.txt declares, by name."""
    text = re.sub(r"#.*", "", text)
    found = {}
    for name, words in re.findall(r"(touchpanel_library|add_executable|target_link_libraries)\(([^)]*)\)", text):
        first, *rest = words.split()
        uses = {word for word in rest if word.startswith("touchpanel_")}
        if name == "touchpanel_library":
            found["touchpanel_" + first.replace("/", "_")] = Target(folder, uses)
        elif name == "add_executable":
            found[first] = Target(folder, sources={f"{folder}/{word}" for word in rest})
        elif first in found:
            found[first].uses |= uses
    return found


def reachable(targets, name):
    seen, waiting = set(), [name]
    while waiting:
        for used in targets[waiting.pop()].uses:
            if used in targets and used not in seen:
                seen.add(used)
                waiting.append(used)
    return seen


def problems_of(targets, includes):
    """What is wrong with `includes`, a dictionary from each source below src/ to the paths it includes in quotes."""
    libraries = {t.folder: name for name, t in targets.items() if not t.sources}

    def owner(path):
        folder = os.path.dirname(path)
        while folder and folder not in libraries:
            folder = os.path.dirname(folder)
        return libraries.get(folder)

    def row(folder):
        return next((i for i, names in enumerate(ROWS) if folder.split("/")[0] in names), len(ROWS))

    programs = {source: name for name, t in targets.items() for source in t.sources}
    problems = []
    included = {name: set() for name in targets}
    for path, headers in includes.items():
        user = programs.get(path) or owner(path)
        for header in headers:
            if GENERATED.search(header):
                continue
            used = owner(header)
            if header not in includes or user is None or used is None:
                problems.append(f"src/{path}: \"{header}\" is not written from src/")
                continue
            included[user].add(used)
            if used != user and used not in reachable(targets, user):
                problems.append(f"src/{path}: includes \"{header}\", but {user} does not say that it uses {used}")
    for name, target in targets.items():
        for used in target.uses & targets.keys():
            folder = targets[used].folder
            if row(folder) > row(target.folder):
                problems.append(f"src/{target.folder}: {name} uses {used}, which stands above it")
            if any(re.match(room, target.folder) and not re.match(door, folder) for room, door in ONLY):
                problems.append(f"src/{target.folder}: {name} may not use {used}")
            if not included[name] & ({used} | reachable(targets, used)):
                problems.append(f"src/{target.folder}: {name} says that it uses {used}, but includes nothing of it")
    return problems


GOOD = {"platform": "touchpanel_library(platform)", "contract": "touchpanel_library(contract USES touchpanel_platform)",
        "driver": "touchpanel_library(driver SOURCES A.cpp USES touchpanel_contract)",
        "driver/service": "touchpanel_library(driver/service USES touchpanel_driver)",
        "touchdriverd": "add_executable(touchdriverd main.cpp)\n"
                        "target_link_libraries(touchdriverd PRIVATE touchpanel_driver_service)"}
SOURCES = {"platform/P.h": [], "contract/C.h": ["platform/P.h"], "driver/A.h": ["contract/C.h"],
           "driver/A.cpp": ["driver/A.h", "platform/P.h"], "driver/service/S.h": ["driver/A.h"],
           "touchdriverd/main.cpp": ["driver/service/S.h", "platform/P.h"]}
# What must be caught: changed build files, changed sources, and a word of what is said.
BAD = [({}, {"platform/P.h": ["contract/C.h"]}, "platform does not say"),
       ({}, {"driver/A.h": ["driver/service/S.h", "contract/C.h"]}, "driver does not say"),  # a folder of its own below
       ({}, {"driver/A.cpp": ["A.h"]}, "not written from src/"),
       ({}, {"driver/service/S.h": []}, "includes nothing of it"),
       ({"touchdriverd": "add_executable(touchdriverd main.cpp)"}, {}, "touchdriverd does not say"),
       ({"platform": "touchpanel_library(platform USES touchpanel_contract)"}, {"platform/P.h": ["contract/C.h"]}, "above it"),
       ({"providers/linux": "touchpanel_library(providers/linux USES touchpanel_driver)"},
        {"providers/linux/L.h": ["driver/A.h"]}, "may not use")]


def check_examples():
    def said(builds, sources):
        targets = {}
        for folder, text in {**GOOD, **builds}.items():
            targets |= targets_in(folder, text)
        return problems_of(targets, {**SOURCES, **sources})

    problems = [f"the fence stops what is right: {problem}" for problem in said({}, {})]
    return problems + [f"the fence misses its example '{word}'" for builds, sources, word in BAD
                       if not any(word in problem for problem in said(builds, sources))]


def check_tree(paths):
    targets, includes = {}, {}
    for path in paths:
        if not path.startswith("src/") or not re.search(r"(CMakeLists\.txt|\.h|\.cpp)$", path) or not os.path.exists(path):
            continue
        with open(path, encoding="utf-8") as file:
            text = file.read()
        if path.endswith("CMakeLists.txt"):
            targets |= targets_in(os.path.dirname(path[4:]), text)
        else:
            includes[path[4:]] = re.findall(r'^#include "([^"]+)"', text, re.MULTILINE)
    return check_examples() + problems_of(targets, includes)
