; the orchestra was lost
f1 0 1024 10 1
i1 0 1 8000 8.09
e