// read-codes.cjs PICTURE: writes the text of the PDF417 and of the Aztec Code in a PNG file, one in a line.
"use strict";
const { readFileSync } = require("node:fs");
const { PNG } = require("pngjs");
const { AztecCodeReader, BinaryBitmap, DecodeHintType, HybridBinarizer, NotFoundException, PDF417Reader,
        RGBLuminanceSource } = require("@zxing/library");

const picture = PNG.sync.read(readFileSync(process.argv[2]));
const greys = new Uint8ClampedArray(picture.width * picture.height);
for (let i = 0; i < greys.length; ++i) {
  const [red, green, blue] = picture.data.subarray(4 * i, 4 * i + 3);
  greys[i] = (red + 2 * green + blue) / 4;
}
const source = new RGBLuminanceSource(greys, picture.width, picture.height);
const hints = new Map([[DecodeHintType.TRY_HARDER, true]]);
for (const Reader of [PDF417Reader, AztecCodeReader]) {
  try {
    console.log(new Reader().decode(new BinaryBitmap(new HybridBinarizer(source)), hints).getText());
  } catch (error) {
    if (!(error instanceof NotFoundException)) throw error;
  }
}
