#!/bin/sh
# Runs check_schemas.py with Debian's Python, which sees Debian's python3-jsonschema; reports the
# test skipped (77) when there is no such Python.
if [ ! -x /usr/bin/python3 ]; then
  echo "skipped: /usr/bin/python3 is missing"
  exit 77
fi
exec /usr/bin/python3 "$(dirname "$0")/check_schemas.py" "$@"
