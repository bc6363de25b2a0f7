; MISTAKE - score of mistake.orc: four chords.
i1	0	3	7.00
i1	+	.	7.05
i1	+	.	6.09
i1	+	4	7.00
e
