#!/usr/bin/python3
"""Writes examples/road/excel/design.xlsx, the example project's workbook:
design parameters on the sheet "Design" (names in column A, values in B),
and a "Results" sheet that the example input writes into.
Needs python3-openpyxl. The workbook is committed; run this only to change it."""
import os
import openpyxl
from openpyxl.styles import Font

here = os.path.dirname(os.path.abspath(__file__))
target = os.path.join(here, "..", "examples", "road", "excel", "design.xlsx")

wb = openpyxl.Workbook()
design = wb.active
design.title = "Design"
design.append(["Parameter", "Value", "Unit"])
design.append(["speed", 60, "km/h"])
design.append(["offset", 3.5, "m"])
design.append(["lane", 3.25, "m"])
design["A1"].font = design["B1"].font = design["C1"].font = Font(bold=True)
results = wb.create_sheet("Results")
results.append(["Result", "Value"])
results.append(["MAST plan length", "not computed yet"])
results["A1"].font = results["B1"].font = Font(bold=True)
os.makedirs(os.path.dirname(target), exist_ok=True)
wb.save(target)
print(target)
