; every statement of the score language
f 1 0 1024 10 1
t 0 240 2 300
v 1
b 0.1
i 1 0 .2 .1 1
C 0
i 1 1 .2 .1 [~ * 3 + 1]
C 1
b 0
r 2 TIMES
i 1 0 .2 .1 $TIMES
s
m mark
i 1 0 .1 .1 2
i 1 ^+.2 . pp4 np5
i 1 ^+.2 . . 4
s
n mark
a 0 0 .1
q 1 0 1
x
i 1 0 .1 "skipped by x"
s
y 11
{ 4 N
i 1 [$N * .1] .1 .1 [2 ^ $N]
}
d 1
e
