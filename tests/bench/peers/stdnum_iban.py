"""One check of an IBAN, in nanoseconds: stdnum_iban.py IBAN"""
import sys
import timeit

from stdnum import iban

ROUNDS = 20000

assert iban.is_valid(sys.argv[1])
print(min(timeit.repeat(lambda: iban.is_valid(sys.argv[1]), number=ROUNDS, repeat=5)) / ROUNDS * 1e9)
