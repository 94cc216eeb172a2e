# Prints the error classes that the headers of a folder declare.
import pathlib, re, sys

BASES = {"igsIndexedError", "igsObjectError", "igsStructureError", "igsGlobalError", "igsStartError", "igsTerminateError",
         "igsCompoundEntityError", "igs404ViewError", "igsReferenceDataError", "igsShapeDistanceError"}
# class igsX : public base<igsX, "igsX", ...> {
CLASS = r"class\s+(?:IGS_(?:SHAPE_)?API\s+)?(igs\w+)\s*:\s*public\s+(\w+\s*<\s*\1\s*,[^{;]*)"
# using igsX = igsNamedError<"igsX", ...>; or a member of a family of errors, igsYErrors<...>::Z
ALIAS = r'using\s+(igs\w+)\s*=\s*igs(?:(?:\w*Error|ShapeDistance)\s*<\s*"|\w*Errors\b(?:\s*<[^;>]*>)?\s*::)'

for header in pathlib.Path(sys.argv[1]).rglob("*.h"):
    text = re.sub("//.*", "", header.read_text())
    names = {name for name, bases in re.findall(CLASS, text) if re.search(r"\bigs\w*Error(Class)?\b", bases)}
    for name in (names | set(re.findall(ALIAS, text))) - BASES:
        print(name)
