// As many texts as the test forms have, 22 to a form and three forms to a sheet, as one PDF: pdfkit.mjs COUNT FILE
import { createWriteStream } from "node:fs";
import PDFDocument from "pdfkit";

const [count, file] = process.argv.slice(2);
const texts = 22;
const pdf = new PDFDocument({ autoFirstPage: false, size: "A4" });
pdf.pipe(createWriteStream(file));
for (let form = 0; form < Number(count); ++form) {
  const place = form % 3;
  if (place === 0) {
    pdf.addPage();
  }
  for (let text = 0; text < texts; ++text) {
    pdf.fontSize(text % 2 === 0 ? 9 : 10);
    pdf.text(`6100 0000 ${form} ${text}`, 40 + (text % 4) * 120, 20 + place * 270 + Math.floor(text / 4) * 40,
             { lineBreak: false });
  }
}
pdf.end();
