#!/usr/bin/env python3
"""tutorial_test.py TOOL DOCS WORK COMPILER [FLAG...]: does all that the tutorial says, with the files that it shows.

After each file the directory must be free of mistakes and fit the schemas; at the end the screen must be there, in both
languages, and the program must compile.
"""

import pathlib
import re
import shutil
import subprocess
import sys

SCHEMAS = {"Layouts": "layouts", "Localisation": "localisation", "ThemeConfig": "themes", "GfxConfig": "configuration"}


def run(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def main():
    tool, docs, work, *compiler = sys.argv[1:]
    docs, work = pathlib.Path(docs), pathlib.Path(work)
    shutil.rmtree(work, ignore_errors=True)
    text = (docs / "tutorial.md").read_text(encoding="utf-8")
    blocks = re.findall(r"(?:^`([\w/.]+)`:\n\n)?^```(\w+)\n(.*?)^```", text, re.S | re.M)
    assert [kind for _, kind, _ in blocks].count("xml") == 5, "the tutorial has other files"
    for name, kind, content in blocks:
        if kind != "xml":
            continue
        path = work / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(content, encoding="utf-8")
        schema = next(value for key, value in SCHEMAS.items() if key in name)
        run("xmllint", "--noout", "--schema", str(docs / "schemas" / f"{schema}.xsd"), str(path))
        run(tool, "check", str(work))
    assert 'id="Pump:State"' in run(tool, "tree", "--language", "en", str(work))
    assert "Die Pumpe steht" in run(tool, "tree", "--language", "de", str(work))
    run(tool, "shot", "--layout", "all", "--language", "all", "--output", str(work / "pictures"), str(work))
    assert (work / "pictures/Main-Plain-de.png").exists()
    program = next(content for _, kind, content in blocks if kind == "cpp")
    (work / "main.cpp").write_text(program, encoding="utf-8")
    run(*compiler, "-std=c++20", "-fsyntax-only", str(work / "main.cpp"))


if __name__ == "__main__":
    main()
