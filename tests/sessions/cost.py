# Checks the files FEW and MANY, the second of four times as many errors: their list takes no memory, and the time of
# the program stays in proportion. Prints how many errors are listed.
import os, subprocess, sys


def cost(*arguments):
    """Megabytes and seconds; what is printed goes to the file out."""
    with open("out", "wb") as out:
        igs = subprocess.Popen(["igs", "check", "--format", "json", *arguments], stdout=out)
    usage = os.wait4(igs.pid, 0)[2]
    return usage.ru_maxrss / 1e3, usage.ru_utime


few, none, many = cost(sys.argv[1]), cost("--max-errors", "0", sys.argv[2]), cost(sys.argv[2])
if many[0] > none[0] + 4 or many[1] > 8 * max(few[1], 0.02):
    print(f"{many[0]} MB with a list, {none[0]} MB without; {many[1]} s, {few[1]} s for a quarter")
with open("out", encoding="ascii") as report:
    print(report.read().count('"class":'), "errors")
