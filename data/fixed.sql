-- Rows that the program counts on: the twelve semitones in chromatic order with both their names,
-- and the key variations, the empty one first.
INSERT INTO TOM (ID, NOTA, ORDEM, MAIS) VALUES
    (1, 'C', 1, 'C'),
    (2, 'C#', 2, 'Db'),
    (3, 'D', 3, 'D'),
    (4, 'D#', 4, 'Eb'),
    (5, 'E', 5, 'E'),
    (6, 'F', 6, 'F'),
    (7, 'F#', 7, 'Gb'),
    (8, 'G', 8, 'G'),
    (9, 'G#', 9, 'Ab'),
    (10, 'A', 10, 'A'),
    (11, 'A#', 11, 'Bb'),
    (12, 'B', 12, 'B');

INSERT INTO VARIACAO (ID, NOMENCLATURA) VALUES (1, ''), (2, 'm');
