; score of additive.orc
f1	0	8192	10	1
i1	0	.5	8000	1
i1	0	.	.	2
i.	0	.	.	3
i.	.05	.	<	4
i.	.1	.	<	5
i.	.15	.	4000	6
s
i1	0	.3	8000	8
e
