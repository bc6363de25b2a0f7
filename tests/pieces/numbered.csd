<CsoundSynthesizer>
<CsOptions>
-W -d
</CsOptions>
<CsInstruments>
;	a piece as they were written when samples were integers
	sr	=	22050
	kr	=	2205
	ksmps	=	10
	nchnls	=	1

	instr	1		; marimba
ifreq	=	cpspch(p5)
kenv	expon	p4, p3, 1
asig	oscil	kenv, ifreq, 1
	out	asig
	endin

	instr	2		; the same, filtered noise
anz	rand	p4
afl	reson	anz, cpspch(p5), 20, 2
	out	afl * 0.2
	endin
</CsInstruments>
<CsScore>
f1	0	4096	10	1	0	0	.3
i1	0	.5	8000	8.00
i1	+	.	.	8.03
i2	^+0.25	.	9000	8.07
e
</CsScore>
</CsoundSynthesizer>
