#!/bin/bash
# Prints the C++ files of the repository, those not yet committed too.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
git ls-files --cached --others --exclude-standard -- '*.cpp' '*.hpp' | while read -r file; do
  [[ ! -f $file ]] || echo "$file"
done
