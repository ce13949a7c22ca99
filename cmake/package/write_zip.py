"""write_zip.py ZIP FOLDER SECONDS: packs FOLDER under its own name. The same files give the same bytes: entries are sorted and
bear one time, given in seconds since 1970; no entry holds when its file was read or who owns it."""

import os
import sys
import time
import zipfile

zip_file, top, seconds = sys.argv[1:]
moment = time.gmtime(int(seconds))[:6]
files = sorted(os.path.join(folder, name) for folder, _, names in os.walk(top) for name in names)
with zipfile.ZipFile(zip_file, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as packed:
    for file in files:
        entry = zipfile.ZipInfo(os.path.relpath(file, os.path.dirname(top)), moment)
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.external_attr = 0o100644 << 16
        with open(file, "rb") as content:
            packed.writestr(entry, content.read())
