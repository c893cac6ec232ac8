#!/usr/bin/env python3
"""Writes the artwork beside itself, one SVG per picture.

The pictures are one family: round strokes of 2 units on a grid of 24 (toolbar: 32, so that its
strokes fall on whole pixels), one ink, one accent. A script keeps them so, and draws the inert
twins from the same strokes. Only what an SVG Tiny renderer knows is used: no filters, masks,
classes or texts; letters are paths. Run it after a change and commit what it wrote.
"""

import pathlib

INK, ACCENT, INERT, PAPER = "#2b3440", "#0066cc", "#b9c0c8", "#ffffff"
WARNING, FAILURE = "#c77700", "#c5362f"  # in message boxes alone
HERE = pathlib.Path(__file__).resolve().parent


def line(d, color=INK, width=2):
    return (f'<path d="{d}" fill="none" stroke="{color}" stroke-width="{width}" '
            'stroke-linecap="round" stroke-linejoin="round"/>')


def solid(d, color=INK):
    return f'<path d="{d}" fill="{color}" stroke="none"/>'


def accent(d, width=2):
    return line(d, ACCENT, width)


def ellipse(x, y, rx, ry, color=INK, turn=0):
    return (f'<ellipse cx="{x}" cy="{y}" rx="{rx}" ry="{ry}" fill="{color}" '
            f'transform="rotate({turn} {x} {y})"/>')


def box(x, y, w, h, r, color):
    return f'<rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{r}" ry="{r}" fill="{color}"/>'


def moved(x, y, scale, *parts):
    return f'<g transform="translate({x} {y}) scale({scale})">{"".join(parts)}</g>'


def write(name, width, height, *parts):
    path = HERE / f"{name}.svg"
    path.parent.mkdir(exist_ok=True)
    body = "\n".join(f"  {p}" for p in parts)
    path.write_text(
        f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
        f'width="{width}" height="{height}" viewBox="0 0 {width} {height}">\n{body}\n</svg>\n',
        encoding="utf-8")


# ---------------------------------------------------------------- parts that several pictures share

def note(color=INK):
    """A quarter note in the left half of a grid of 24."""
    return ellipse(5.8, 18.4, 4.1, 3.1, color, -22) + line("M8.7 17.6V3", color, 2.2)


def eighth(color, width=2.4):
    """An eighth note that fills a grid of 24."""
    return (ellipse(7.4, 18.6, 4.8, 3.7, color, -22) + line("M11 17.6V3", color, width)
            + solid("M10.2 2.4C11.6 6.6 18.6 7 17.2 14.6C16.2 10.6 13.6 9.6 10.2 9.2Z", color))


def sheet(color=INK):
    """A written page in the left half of a grid of 24."""
    return line("M3.5 2H12.5V22H3.5Z", color) + line("M6.7 7H9.3M6.7 11H9.3M6.7 15H9.3", color, 1.6)


def rows():
    """The lines of a list, room left for a sign at the lower right."""
    return line("M3 5H21M3 11.5H11M3 18H11")


def cross(x, y, r, color=ACCENT, width=2.4):
    return line(f"M{x - r} {y - r}L{x + r} {y + r}M{x + r} {y - r}L{x - r} {y + r}", color, width)


def arrow(x, top, bottom, up, half=4, width=2.4):
    tip, back = (top, top + half) if up else (bottom, bottom - half)
    return accent(f"M{x} {top}V{bottom}M{x - half} {back}L{x} {tip}L{x + half} {back}", width)


# ---------------------------------------------------------------- the viewer's buttons

def letter_a(left, top, width, bottom, color=INK, stroke=2.2):
    height = bottom - top
    bar = top + 0.66 * height
    inset = 0.5 * width * (1 - 0.66)
    return line(f"M{left} {bottom}L{left + width / 2} {top}L{left + width} {bottom}"
                f"M{left + inset:.2f} {bar:.2f}H{left + width - inset:.2f}", color, stroke)


def pencil():
    return line("M3 21L4.2 15.6L15.6 4.2A2.4 2.4 0 0 1 19 4.2L19.8 5A2.4 2.4 0 0 1 19.8 8.4"
                "L8.4 19.8Z")


VIEWER = {
    "cmdSobe": [note(), arrow(18, 4, 20.5, True)],
    "cmdDesce": [note(), arrow(18, 4, 20.5, False)],
    "cmdTomOriginal": [note(), accent("M17 3.6L13.4 7.4L17 11.2M13.8 7.4H16.8A5.7 5.7 0 0 1 "
                                      "16.8 18.8H14.4", 2.4)],
    "cmdLetra": [letter_a(2.6, 2.2, 7.6, 11, ACCENT), accent("M13.4 11V5.4M13.4 7.4A2.05 2.05 0 0 1 17.5 7.4V11"
                                                            "M17.5 7.4A2.05 2.05 0 0 1 21.6 7.4V11", 2.2),
                 line("M2.5 16H21.5M2.5 21H14.5")],
    "cmdAumentaFonte": [letter_a(1.8, 4, 13, 20.5, INK, 2.4), accent("M18.6 4.4V12.2M14.7 8.3H22.5",
                                                                     2.4)],
    "cmdDiminuiFonte": [letter_a(3.6, 10, 9.4, 20.5, INK, 2.4), accent("M14.7 8.3H22.5", 2.4)],
    "cmdAutoRolagem": [sheet(), arrow(18.5, 4, 20.5, False)],
    "cmdAutoRolagem2": [sheet(), box(15, 8, 8, 8, 1.4, ACCENT)],
    "cmdAnterior": [line("M5 4.5V19.5", INK, 2.6),
                    solid("M19.6 4.6A1 1 0 0 0 18.1 3.8L8.4 11.2A1 1 0 0 0 8.4 12.8L18.1 20.2"
                          "A1 1 0 0 0 19.6 19.4Z", ACCENT)],
    "cmdProxima": [line("M19 4.5V19.5", INK, 2.6),
                   solid("M4.4 4.6A1 1 0 0 1 5.9 3.8L15.6 11.2A1 1 0 0 1 15.6 12.8L5.9 20.2"
                         "A1 1 0 0 1 4.4 19.4Z", ACCENT)],
    "cmdEditar": [pencil(), accent("M13.6 6.4L17.6 10.4"), accent("M14 21H21")],
    "cmdSalvar": [line("M21 8.5V19.5A1.5 1.5 0 0 1 19.5 21H4.5A1.5 1.5 0 0 1 3 19.5V4.5"
                       "A1.5 1.5 0 0 1 4.5 3H15.5Z"), line("M7.5 3V7.5H14V3"),
                  accent("M7.4 14.6L10.8 18L16.8 12", 2.6)],
    "cmdDescartar": [pencil(), line("M13.6 6.4L17.6 10.4"), cross(18.2, 18.2, 3.4)],
    "cmdFechar": [cross(12, 12, 7, INK, 2.8)],
    "cmdMinimizar": [line("M5 18.5H19", INK, 2.8)],
}

TWINS = ["cmdSobe", "cmdTomOriginal", "cmdDesce", "cmdLetra", "cmdAumentaFonte", "cmdDiminuiFonte",
         "cmdAnterior", "cmdProxima", "cmdDescartar"]


def viewer():
    for name, parts in VIEWER.items():
        write(f"viewer/{name}", 24, 24, *parts)
    for name in TWINS:
        grey = [p.replace(INK, INERT).replace(ACCENT, INERT) for p in VIEWER[name]]
        write(f"viewer/{name}2", 24, 24, *grey)


# ---------------------------------------------------------------- the main form

TOOLBAR = {
    "pesquisa": [line("M23 13A10 10 0 1 1 3 13A10 10 0 1 1 23 13Z"), line("M21 21L28.5 28.5", INK, 3),
                 moved(6.6, 6.6, 0.56, eighth(ACCENT, 3))],
    "cadastro": [line("M17 29H6A2 2 0 0 1 4 27V5A2 2 0 0 1 6 3H17L24 10V16"), line("M17 3V10H24"),
                 line("M9 12H13M9 17H18M9 22H14"), accent("M24.5 20V29M20 24.5H29", 3)],
    "lista": [line("M12 7H29M12 16H29M12 25H29")] + [ellipse(5, y, 2.6, 2.6, ACCENT)
                                                     for y in (7, 16, 25)],
    "exportar": [line("M4 18V26A2 2 0 0 0 6 28H27A2 2 0 0 0 29 26V18"),
                 accent("M16.5 21V4M9.5 11L16.5 4L23.5 11", 3)],
    "importar": [line("M4 18V26A2 2 0 0 0 6 28H27A2 2 0 0 0 29 26V18"),
                 accent("M16.5 4V21M9.5 14L16.5 21L23.5 14", 3)],
    "sobre": [line("M29.5 16.5A13 13 0 1 1 3.5 16.5A13 13 0 1 1 29.5 16.5Z"),
              ellipse(16.5, 9.5, 2, 2, ACCENT),
              accent("M13.5 15.5H16.5V23.5M13 23.5H20", 3)],
    "sair": [line("M18 9V5A2 2 0 0 0 16 3H6A2 2 0 0 0 4 5V28A2 2 0 0 0 6 30H16A2 2 0 0 0 18 28V24"),
             accent("M11 16.5H29M23 10.5L29 16.5L23 22.5", 3)],
}


def main_form():
    for name, parts in TOOLBAR.items():
        write(f"toolbar/{name}", 32, 32, *parts)
    keys = "M5.6 9.5H6M9.8 9.5H10.2M14 9.5H14.4M18.2 9.5H18.6M7.6 13H8M11.8 13H12.2M16 13H16.4"
    write("teclado", 24, 24,
          line("M4 5H20A2 2 0 0 1 22 7V17A2 2 0 0 1 20 19H4A2 2 0 0 1 2 17V7A2 2 0 0 1 4 5Z"),
          line(keys), accent("M8 16H16", 1.8))
    write("teclado-fechar", 24, 24, cross(12, 12, 6, INK, 2.8))
    write("lista/adicionar", 24, 24, rows(), accent("M18 11V20.6M13.2 15.8H22.8", 2.4))
    write("lista/remover", 24, 24, rows(), accent("M14 15.8H22.4", 2.4))
    write("lista/sobe", 24, 24, rows(), arrow(18, 11, 21, True))
    write("lista/desce", 24, 24, rows(), arrow(18, 11, 21, False))
    write("mensagem", 48, 48,
          line("M25 43H11A3 3 0 0 1 8 40V8A3 3 0 0 1 11 5H27L36 14V19", INK, 2.4),
          line("M27 5V14H36", INK, 2.4), line("M14 16H21M14 23H24M14 30H21", INK, 2.4),
          ellipse(35, 35, 11, 11, ACCENT),
          line("M31.4 32.2A3.7 3.7 0 1 1 36.9 35.3C35.4 36.2 35 36.8 35 38", PAPER, 2.4),
          ellipse(35, 41.4, 1.5, 1.5, PAPER))
    boxes()


def boxes():
    """What message boxes show: the accent where something is told or asked, the usual colours of
    warnings where something is refused or fails."""
    disc = ellipse(24, 24, 21, 21, ACCENT)
    write("caixa/informacao", 48, 48, disc, ellipse(24, 14.5, 2.7, 2.7, PAPER),
          line("M20.5 22H24.5V34M19.5 34H29.5", PAPER, 3.6))
    write("caixa/pergunta", 48, 48, disc,
          line("M17.4 18.8A6.8 6.8 0 1 1 27.6 24.6C24.8 26.3 24 27.4 24 29.6", PAPER, 3.8),
          ellipse(24, 36, 2.6, 2.6, PAPER))
    triangle = "M24 6.5L43.5 40.5H4.5Z"
    write("caixa/exclamacao", 48, 48, solid(triangle, WARNING), line(triangle, WARNING, 5),
          line("M24 18V28", PAPER, 4.2), ellipse(24, 35.4, 2.6, 2.6, PAPER))
    write("caixa/critico", 48, 48, ellipse(24, 24, 21, 21, FAILURE),
          cross(24, 24, 7.4, PAPER, 4.2))


# ---------------------------------------------------------------- the program's mark

def mark(size):
    """A white note that lies on the lines of a song, on a tile of the accent."""
    k = size / 24
    return moved(0, 0, k, box(0.5, 0.5, 23, 23, 5, ACCENT),
                 line("M15.4 15.6H20M15.4 19.2H20", "#a9cdf2", 1.8),
                 moved(1.9, 1.6, 0.86, eighth(PAPER, 2.8)))


def song_file():
    """A page with a folded corner that carries the mark: a file of songs, for file managers."""
    page = "M10 2.5H39L54 17.5V58.5A3 3 0 0 1 51 61.5H13A3 3 0 0 1 10 58.5Z"
    return [f'<path d="{page}" fill="{PAPER}"/>', line(page, "#8b95a1", 2),
            f'<path d="M39 2.5V17.5H54Z" fill="#dbe3ec"/>', line("M39 2.5V17.5H54", "#8b95a1", 2),
            moved(16.5, 24, 1.3, mark(24))]


def splash():
    width, height = 480, 200
    parts = [f'<defs><linearGradient id="sky" gradientUnits="userSpaceOnUse" x1="0" y1="0" x2="0" '
             f'y2="{height}"><stop offset="0" stop-color="#ffffff"/><stop offset="1" '
             f'stop-color="#dbe9f8"/></linearGradient></defs>',
             f'<rect x="0" y="0" width="{width}" height="{height}" fill="url(#sky)"/>']
    # Five staff lines that swing up to the right, then notes riding on them.
    for i in range(5):
        y = 128 + 13 * i
        parts.append(line(f"M0 {y}C110 {y - 50} 190 {y + 42} 300 {y - 22}S430 {y - 96 + 4 * i} 480 "
                          f"{y - 92 + 4 * i}", "#9fc3ea", 1.6))
    for x, y, s, color in ((40, 72, 2.6, INK), (128, 92, 2.3, ACCENT), (206, 98, 2.6, INK),
                           (286, 66, 2.9, ACCENT), (372, 12, 3.0, INK)):
        parts.append(moved(x, y, s, eighth(color, 2.2)))
    write("splash", width, height, *parts)


def identity():
    write("melodario", 64, 64, mark(64))
    write("logo", 128, 128, mark(128))
    write("../../packaging/mime/arquivo", 64, 64, *song_file())
    splash()


# ---------------------------------------------------------------- the frame around the white sheet

SIZE, EDGE, DROP, DEPTH = 16, 10, 1.5, 8   # image, its sheet's edge from outside, shadow's offset
LINE_COLOR = "#c3cbd4"


def layers():
    """(how far it reaches beyond the sheet, offset downward, colour, opacity), outermost first."""
    for k in range(DEPTH - 1, 0, -1):
        yield k, DROP, "#1d2733", 0.016 + 0.003 * (DEPTH - k)
    yield 0, 0, LINE_COLOR, 1
    yield -1, 0, PAPER, 1


def corner(right, bottom):
    parts = []
    for reach, drop, color, opacity in layers():
        r = max(reach + 2.5, 1.5)
        x = SIZE - EDGE + reach if right else EDGE - reach
        y = (SIZE - EDGE + reach if bottom else EDGE - reach) + drop
        inner_x, inner_y = (0 if right else SIZE), (0 if bottom else SIZE)
        curve_x, curve_y = (x - r if right else x + r), (y - r if bottom else y + r)
        sweep = 1 if right == bottom else 0
        parts.append(f'<path d="M{inner_x} {inner_y}V{y}H{curve_x}A{r} {r} 0 0 '
                     f'{1 - sweep} {x} {curve_y}V{inner_y}Z" fill="{color}" '
                     f'fill-opacity="{opacity:.3f}"/>')
    return parts


def edge(side):
    parts = []
    for reach, drop, color, opacity in layers():
        inner = EDGE - reach
        x, y, w, h = {
            "Esq": (inner, 0, SIZE - inner, SIZE), "Dir": (0, 0, SIZE - inner, SIZE),
            "Sup": (0, inner + drop, SIZE, SIZE - inner - drop),
            "Inf": (0, 0, SIZE, SIZE - inner + drop)}[side]
        parts.append(f'<rect x="{x}" y="{y}" width="{w}" height="{h}" fill="{color}" '
                     f'fill-opacity="{opacity:.3f}"/>')
    return parts


def frame():
    for vertical in ("Sup", "Inf"):
        for horizontal in ("Esq", "Dir"):
            write(f"frame/imgFundo{vertical}{horizontal}", SIZE, SIZE,
                  *corner(horizontal == "Dir", vertical == "Inf"))
    for side in ("Sup", "Inf", "Esq", "Dir"):
        write(f"frame/imgFundo{side}", SIZE, SIZE, *edge(side))


if __name__ == "__main__":
    viewer()
    main_form()
    identity()
    frame()
