# Makes IGES files from a line of text. Parts are separated by " ; ", and \\ escapes are those of Python:
#
#     line, short, point, 402:7 2,1,3   an entity: one of the commonest, or type, form and data; "x20" behind: so many
#     G18=2HMM  S=one|two               a Global parameter, the Start lines
#     3.d14=5                           directory entry field 14 of the entity with DE number 3
#     T1.10=      7  P9+=text  D1-      overwrites columns of a record; puts a line before it; takes it out
#     end=\\r\\n  cut=300                 what ends a record; only so many bytes are left
import re

COMMON = {"line": "110 0.,0.,0.,1.,0.,0.", "short": "110 0.,0.,0.,0.,0.,0.", "point": "116 1.,2.,3.,0"}
GLOBAL = ("1H,|1H;|4Htest|8Htest.igs|5Hmaker|3H1.0|32|38|6|308|15|4Htest|1.|2|2HMM|1|0.|15H20200102.030405|1.D-6|1000."
          "|6Hauthor|3Horg|11|0|15H20200102.030405")


def packed(text, width):
    lines = [""]
    while text:
        field = re.match(r"\d+H", text)
        size = field.end() + int(text[:field.end() - 1]) if field else 0
        size = text.find(",", size) + 1 or len(text)
        if len(lines[-1]) + size > width:
            lines.append("")
        lines[-1], text = lines[-1] + text[:size], text[size:]
    return lines


def layout(start, parameters, entities):
    records = {"S": start, "G": packed(",".join(parameters) + ";", 72), "D": [], "P": []}
    for kind, form, data in entities:
        lines = packed(kind + ("," + data if data else "") + ";", 64)
        numbers = [kind, len(records["P"]) + 1] + [0] * 6, [kind, 0, 0, len(lines), form]
        first, second = ("".join(str(number).rjust(8) for number in row) for row in numbers)
        de = len(records["D"]) + 1
        records["D"] += [first + "00000000", second.ljust(64) + "0".rjust(8)]
        records["P"] += [line.ljust(65) + str(de).rjust(7) for line in lines]
    records["T"] = ["".join(section + str(len(lines)).rjust(7) for section, lines in records.items())]
    return {section: [line.ljust(72) + section + str(i + 1).rjust(7) for i, line in enumerate(lines)]
            for section, lines in records.items()}


def damage(records, item):
    de, record = re.fullmatch(r"(\d+)\.d(\d+)=(.*)", item, re.S), re.fullmatch(r"(\w)(\d+)(\.\d+=|\+=|-)(.*)", item, re.S)
    if de:
        number, field = int(de[1]), int(de[2])
        damage(records, f"D{number + field // 11}.{(field - 1) % 10 * 8 + 1}={de[3].rjust(8)}")
        return
    lines, at, text = records[record[1]], int(record[2]) - 1, record[4]
    if record[3][0] == ".":
        column = int(record[3][1:-1]) - 1
        lines[at] = lines[at][:column] + text + lines[at][column + len(text):]
    else:
        lines[at:at + (record[3] == "-")] = [text] if record[3] == "+=" else []


def iges(description):
    # The bytes of the file.
    parameters, entities, damages, options = GLOBAL.split("|"), [], [], {"S": "A file made for a test.", "end": "\n"}
    for item in filter(None, description.encode("latin-1", "backslashreplace").decode("unicode_escape").split(" ; ")):
        entity = re.fullmatch(r"(\d+)(?::(\d+))?(?: (.*?))?(?: x(\d+))?", re.sub(r"^[a-z]+\b(?!=)", lambda name: COMMON[name[0]], item))
        option = re.fullmatch(r"(S|end|cut|G(?=\d+=))(\d*)=(.*)", item, re.S)
        if entity:
            entities += [(entity[1], entity[2] or 0, entity[3] or "")] * int(entity[4] or 1)
        elif option and option[2]:
            parameters[int(option[2]) - 1] = option[3]
        elif option:
            options[option[1]] = option[3]
        else:
            damages.append(item)
    records = layout(options["S"].split("|"), parameters, entities)
    for item in damages:
        damage(records, item)
    text = "".join(line + options["end"] for lines in records.values() for line in lines)
    return text.encode("latin-1")[:int(options.get("cut", len(text)))]
