#!/usr/bin/env bash
# docs_test.sh DESCRIBE SOURCE: whether the reference is up to date, and the data files fit the schemas.

set -euo pipefail

describe=$1
cd "$2"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$describe" tools/describe/data/ >"$work/description.xml" 2>/dev/null
scripts/docs --check "$work/description.xml"

# fits SCHEMA FILE...
fits()
{
    xmllint --noout --schema "docs/schemas/$1.xsd" "${@:2}" 2>"$work/xmllint" || { cat "$work/xmllint"; exit 1; }
}
fits configuration data/Configuration/GfxConfig.xml
fits keyboards data/Configuration/OSK.xml
fits layouts demo/greenhouse/Layouts/*.xml
fits localisation demo/*/Localisation/*.xml
fits models data/Models/Models.xml
fits themes data/Configuration/ThemeConfig.xml
fits textures data/TextureMaps/TextureConfig.xml
