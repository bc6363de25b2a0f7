i 1 0 0.1
i 1 1 x 5
e
