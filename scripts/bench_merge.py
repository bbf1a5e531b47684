#!/usr/bin/env python3
"""Merges the measure lists that each benchmark script wrote into one file."""
import json
import pathlib
import sys

src, dst = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
measures = []
for part in sorted(src.glob("*.measures.json")):
    measures.extend(json.loads(part.read_text()))
dst.write_text(json.dumps(measures, indent=2) + "\n")
