# shuffled.py COUNT LAST [SEED]: prints a file of so many lines with a matrix each, the matrices all the same, and of
# groups that contain each other in a ring; the x of the last line is LAST. The entities are in an order of SEED.
import random, sys

from iges import iges

count, last, *seeds = sys.argv[1:]
count, order = int(count), list(range(3 * int(count)))
for seed in seeds:
    random.Random(int(seed)).shuffle(order)
entities, pointers = [""] * len(order), []
for i in range(count):
    line, matrix, group, following = (2 * order[k % len(order)] + 1 for k in (3 * i, 3 * i + 1, 3 * i + 2, 3 * i + 5))
    entities[line // 2] = f"110 0.,0.,0.,{i % 7 + 1 if i + 1 < count else last}.,{i // 7}.,0."
    entities[matrix // 2] = "124 1.,0.,0.,5.,0.,1.,0.,0.,0.,0.,1.,0."
    entities[group // 2] = f"402:7 2,{line},{following}"
    pointers.append(f"{line}.d7={matrix}")
sys.stdout.buffer.write(iges(" ; ".join(entities + pointers)))
