"""Checks the files FEW and MANY, the second of four times as many errors: their list takes no memory, and the time of
the program stays in proportion. Prints how many errors are listed."""
import os, sys


def cost(*arguments):
    """Megabytes and seconds; what is printed goes to the file out."""
    child = os.fork()
    if child == 0:
        os.dup2(os.open("out", os.O_WRONLY | os.O_CREAT | os.O_TRUNC), 1)
        os.execlp("igs", "igs", "check", "--format", "json", *arguments)
    usage = os.wait4(child, 0)[2]
    return usage.ru_maxrss / 1e3, usage.ru_utime


few, none = cost(sys.argv[1]), cost("--max-errors", "0", sys.argv[2])
many = cost(sys.argv[2])
if many[0] > none[0] + 4:
    print(f"{many[0]} MB with a list, {none[0]} MB without")
if many[1] > 8 * max(few[1], 0.02):
    print(f"{many[1]} s, {few[1]} s for a quarter")
with open("out", encoding="ascii") as report:
    print(report.read().count('"class":'), "errors")
