; CANON - score of canon.orc. p4 is carried with ".", p2 goes on with "+", and "<" makes a ramp.

#define THEME(INTERVAL'PLACE)
#
i1	[$START]	1	72	8.00	$INTERVAL	$PLACE
i1	+	.5	.	8.02	.	.
i1	+	.	<	8.04	.	.
i1	+	1	<	8.05	.	.
i1	+	.	80	8.07	.	.
i1	+	.5	.	8.09	.	.
i1	+	.	<	8.07	.	.
i1	+	1	<	8.05	.	.
i1	+	.	72	8.04	.	.
i1	+	2	.	8.02	.	.
i1	+	.	.	8.00	.	.
#

f1	0	8192	10	1
f2	0	8192	10	1 .5 .33 .25 .2 .16

t	0	90	10	100	14	60

#define START #0#
$THEME(0'0.2)
#undef START
#define START #4#
$THEME(-5'0.8)
e
