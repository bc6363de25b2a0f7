; additive.orc - eight partials from one instrument
	sr	=	44100
	kr	=	4410
	ksmps	=	10
	nchnls	=	1

	instr	1
inum	=	p5
kenv	expseg	.001, .02, p4/inum, p3-.02, .001
asig	oscili	kenv, 110*inum, 1
	out	asig
	endin
