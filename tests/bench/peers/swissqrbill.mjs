// A batch of payment slips as one PDF: swissqrbill.mjs COUNT FILE
import { createWriteStream } from "node:fs";
import { createRequire } from "node:module";
import { SwissQRBill } from "swissqrbill/pdf";

const PDFDocument = createRequire(import.meta.url)("pdfkit");
const [count, file] = process.argv.slice(2);

const bill = (number) => ({
  amount: 26.8 + number,
  creditor: {
    account: "CH4431999123000889012", address: "Dorpsstraat", buildingNumber: 12, city: "Zandwijk", country: "CH",
    name: "Stichting Wijkorkest De Lijster", zip: 1234,
  },
  currency: "CHF",
  debtor: {
    address: "Testsingel", buildingNumber: 102, city: "Testerwold", country: "CH", name: "P. ter Zegelma", zip: 9941,
  },
  reference: "210000000003139471430009017",
});

const pdf = new PDFDocument({ autoFirstPage: false, size: "A4" });
pdf.pipe(createWriteStream(file));
for (let number = 0; number < Number(count); ++number) {
  pdf.addPage();
  new SwissQRBill(bill(number)).attachTo(pdf);
}
pdf.end();
