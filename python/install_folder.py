"""Prints where this Python looks for packages of a prefix, from the prefix on: install_folder.py PREFIX"""

import os
import site
import sys
import sysconfig

prefix = os.path.normpath(sys.argv[1])
found = [folder for folder in site.getsitepackages() if os.path.normpath(folder).startswith(prefix + "/lib")]
# That of a virtual environment there.
found.append(sysconfig.get_path("platlib", "posix_prefix", {"base": prefix, "platbase": prefix}))
print(os.path.relpath(found[0], prefix), end="")
