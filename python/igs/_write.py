"""Files that are written whole or not at all."""

from __future__ import annotations

import contextlib
import os
import secrets
import stat


def write_whole(path: str | os.PathLike[str], content: bytes) -> None:
    """Puts the content in the place of a file, which keeps its permissions; a symbolic link keeps pointing at it.

    Until all of it is on disk the file stays as it was. What is no regular file (a device, a pipe) is written
    directly. Raises an OSError, everything as it was.
    """
    target = os.path.realpath(path)
    mode = None
    with contextlib.suppress(FileNotFoundError):
        status = os.stat(target)
        mode = stat.S_IMODE(status.st_mode)
        if not stat.S_ISREG(status.st_mode):
            with open(target, "wb") as device:
                device.write(content)
            return
    folder, name = os.path.split(target)
    temporary = os.path.join(folder, f".{name[:50]}.{secrets.token_hex(8)}")
    file = open(temporary, "xb")
    try:
        with file:
            if mode is not None:
                os.fchmod(file.fileno(), mode)
            file.write(content)
            file.flush()
            os.fsync(file.fileno())
        os.replace(temporary, target)
    except BaseException:
        with contextlib.suppress(OSError):
            os.unlink(temporary)
        raise
