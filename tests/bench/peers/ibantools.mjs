// One check of an IBAN, in nanoseconds: ibantools.mjs IBAN
import { isValidIBAN } from "ibantools";

const iban = process.argv[2];
const rounds = 300000;
let valid = 0;
for (let i = 0; i < rounds; ++i) {
  valid += isValidIBAN(iban) ? 1 : 0; // the engine warms up
}
const start = process.hrtime.bigint();
for (let i = 0; i < rounds; ++i) {
  valid += isValidIBAN(iban) ? 1 : 0;
}
const spent = Number(process.hrtime.bigint() - start);
if (valid !== 2 * rounds) {
  throw new Error("the IBAN is refused");
}
console.log(spent / rounds);
