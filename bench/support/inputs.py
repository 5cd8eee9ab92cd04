"""Input files of any size for the benchmarks."""
import math
import random

WAVELENGTH = 1.54
INS = 'TITL bench\nCELL 1.54 %g %g %g 90 90 90\n'


def reflections(count, cell, low, high):
    """That many reflections between two angles of 2theta, taken at random from half a sphere of an orthorhombic cell."""
    inner, outer = ((2 * math.sin(math.radians(angle / 2)) / WAVELENGTH) ** 2 for angle in (low, high))
    limits = [int(math.sqrt(outer) * edge) for edge in cell]
    rows = []
    for h in range(limits[0] + 1):
        for k in range(-limits[1], limits[1] + 1):
            q = (h / cell[0]) ** 2 + (k / cell[1]) ** 2
            rows += [(h, k, l) for l in range(-limits[2], limits[2] + 1)
                     if inner < q + (l / cell[2]) ** 2 < outer and (h, k, l) > (0, 0, 0)]
    return random.sample(rows, count)


def model(cell, atoms):
    """A model in P 21/c, marked to be taken as it stands: of each five atoms two are hydrogen, the rest anisotropic."""
    rows = ''
    for i in range(atoms):
        xyz = '%.5f %.5f %.5f' % tuple(random.random() for _ in range(3))
        if i % 5 < 3:
            rows += '%s%d %d %s 11 .02 .03 =\n .025 .001 .002 .003\n' % ('CNO'[i % 5], i, i % 5 + 1, xyz)
        else:
            rows += 'H%d 4 %s 11 -1.2\n' % (i, xyz)
    head = 'TITL bench\nREM XWMIN\nCELL 1.54 %g %g %g 90 90 90\nLATT 1\nSYMM -X, 0.5+Y, 0.5-Z\nSFAC C N O H\nFVAR 1\n'
    return head % cell + rows + 'HKLF 4\n'


def hkl(rows):
    return ''.join('%4d%4d%4d%8.2f%8.2f\n' % (*row, random.uniform(1, 9000), random.uniform(0.1, 3)) for row in rows)


def fcf(rows, top=9000):
    """LIST 4 in its narrow layout, with F squared up to the given value."""
    return 'data_bench\n_shelx_refln_list_code 4\n' + ''.join(
        '%4d%4d%4d%12.2f%12.2f%10.2f o\n' % (*row, f2, f2 * 1.01, 0.1 + f2 * 0.02)
        for row in rows for f2 in (random.uniform(1, top),))


def pattern(points):
    """2theta and counts."""
    return ((4 + 0.005 * i, random.randint(2, 99_000)) for i in range(points))


def ing(points):
    head = 'BENCH\n1.54\n4.\n%.4f\n0.005\n4.\n%d\n' % (4 + 0.005 * points, points)
    return head + ''.join(' %8.3f   %9d.\n' % point for point in pattern(points))


def cif(points):
    names = '_diffraction_radiation_wavelength 1.54\n_pd_meas_2theta_range_min 4.\n_pd_meas_2theta_range_max %.4f\n' \
            '_pd_meas_2theta_range_inc 0.005\n_pd_meas_step_count_time 4.\nloop_\n    _pd_meas_counts_total\n'
    return names % (4 + 0.005 * points) + ''.join('%18d.\n' % count for _, count in pattern(points))


def xy(points):
    return ''.join('%9.3f %10d\n' % point for point in pattern(points))


def peak_list(peaks):
    rows = sorted((random.uniform(5, 90), random.uniform(10, 5000)) for _ in range(peaks))
    return '   Radiation Wavelength   1.54056\n   Marked peaks\n' + ''.join(
        '%10.3f%12.1f%9.4f\n' % (*row, 1) for row in rows)
