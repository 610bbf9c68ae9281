"""A document of two pages of any size, with texts all over them, as a form has them on its sheet."""

PITCH_X, PITCH_Y = 95, 60  # points from one text to the next
EDGE = 25


def make(width, height):
    """The PDF's bytes; lengths are points."""
    texts = b"".join(b"BT /F1 10 Tf %d %d Td (T%dx%d) Tj ET\n" % (x, y, x, y)
                     for y in range(EDGE, int(height) - EDGE, PITCH_Y)
                     for x in range(EDGE, int(width) - PITCH_X, PITCH_X))
    page = (b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 %.3f %.3f]/Contents 5 0 R/Resources<</Font<</F1 6 0 R>>>>>>"
            % (width, height))
    objects = [b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[3 0 R 4 0 R]/Count 2>>", page, page,
               b"<</Length %d>>stream\n" % len(texts) + texts + b"endstream",
               b"<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>"]
    data, places = b"%PDF-1.4\n", []
    for number, each in enumerate(objects, 1):
        places.append(len(data))
        data += b"%d 0 obj\n" % number + each + b"\nendobj\n"
    table = b"".join(b"%010d 00000 n \n" % place for place in places)
    return (data + b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1) + table
            + b"trailer<</Size %d/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % (len(objects) + 1, len(data)))
