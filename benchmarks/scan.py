"""Writes a closed body of 2,400,240 facets to an STL file, as a scan of a cast blank has them: a shaft of 150 mm with a wavy
and rough surface, its front at x = 0. The word is the file."""
import math
import random
import struct
import sys

ROWS, COLUMNS, LENGTH = 1096, 1095, 150
facet = struct.Struct("<12fH").pack
random.seed(1)


def point(row, column):
    radius = 30 + 2 * math.sin(row / 80) + 0.5 * math.sin(column / 30) + random.uniform(-0.02, 0.02)
    angle = 2 * math.pi * column / COLUMNS
    return LENGTH * (row / (ROWS - 1) - 1), radius * math.cos(angle), radius * math.sin(angle)


points = [[point(row, column) for column in range(COLUMNS)] for row in range(ROWS)]
with open(sys.argv[1], "wb") as file:
    file.write(bytes(80) + struct.pack("<I", 2 * ROWS * COLUMNS))
    for near, far in zip(points, points[1:]):
        for this in range(COLUMNS):
            other = (this + 1) % COLUMNS
            file.write(facet(0, 0, 0, *near[this], *far[other], *far[this], 0))
            file.write(facet(0, 0, 0, *near[this], *near[other], *far[other], 0))
    for this in range(COLUMNS):
        other = (this + 1) % COLUMNS
        file.write(facet(0, 0, 0, -LENGTH, 0, 0, *points[0][other], *points[0][this], 0))
        file.write(facet(0, 0, 0, 0, 0, 0, *points[-1][this], *points[-1][other], 0))
