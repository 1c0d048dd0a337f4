"""Records of COBOL: columns with their pictures, numbers for them, and the programs encode.cob and
decode.cob, compiled for some columns."""
import dataclasses
import decimal
import os
import random
import subprocess
import tempfile

SOURCES = os.path.dirname(os.path.abspath(__file__))
ROWS = 120
SHOWN_DIGITS = 20  # of 2^64 - 1, the longest number


@dataclasses.dataclass(frozen=True)
class Usage:
    """A way to store numbers: how COBOL calls it, and iocv."""
    name: str
    signed: bool
    clause: str
    format: str
    width: object  # bytes of so many digits


def packed_width(digits):
    return digits // 2 + 1  # one half-byte is the sign


def comp6_width(digits):
    return (digits + 1) // 2


def zoned_width(digits):
    return digits


def separate_width(digits):
    return 1 + digits


BINARY_WIDTHS = {2: 1, 4: 2, 9: 4, 18: 8}
binary_width = BINARY_WIDTHS.__getitem__

PACKED = Usage("packed", True, "comp-3", "P", packed_width)
UNSIGNED_PACKED = Usage("packed-u", False, "comp-3", "P", packed_width)
COMP6 = Usage("comp6", False, "comp-6", "PK", comp6_width)
ZONED = Usage("zoned", True, "display", "Z", zoned_width)
UNSIGNED_ZONED = Usage("zoned-u", False, "display", "Z", zoned_width)
SEPARATE = Usage("separate", True, "display sign leading separate", "F", separate_width)
BINARY = Usage("binary", True, "comp-5", "IB", binary_width)
UNSIGNED_BINARY = Usage("binary-u", False, "comp-5", "PIB", binary_width)
BIG_ENDIAN = Usage("big-endian", True, "comp", "IB", binary_width)


@dataclasses.dataclass(frozen=True)
class Column:
    usage: Usage
    digits: int
    decimals: int

    @property
    def name(self):
        return f"{self.usage.name}-{self.digits}-{self.decimals}"

    @property
    def width(self):
        return self.usage.width(self.digits)

    @property
    def format(self):
        return f"{self.usage.format}{self.width}" + (f".{self.decimals}" if self.decimals else "")

    @property
    def stored_item(self):
        sign = "s" if self.usage.signed else ""
        return f"{picture(sign, self.digits, self.decimals)} usage {self.usage.clause}"

    @property
    def shown_item(self):
        return f"{picture('s', SHOWN_DIGITS, self.decimals)} sign leading separate"

    @property
    def limits(self):
        """The least and the largest number, in units of its last place."""
        if self.usage.clause != "comp-5":  # the others end where the picture does
            largest = 10 ** self.digits - 1
            return (-largest if self.usage.signed else 0), largest
        bits = 8 * self.width
        return (-2 ** (bits - 1), 2 ** (bits - 1) - 1) if self.usage.signed else (0, 2 ** bits - 1)


def picture(sign, digits, decimals):
    whole = f"9({digits - decimals})" if digits > decimals else ""
    return f"pic {sign}{whole}" + (f"v9({decimals})" if decimals else "")


def columns_of(usage):
    """Columns of up to 18 digits, of which up to 4 are decimals."""
    every = BINARY_WIDTHS if usage.width is binary_width else range(1, 19)
    return [Column(usage, digits, decimals)
            for digits in every for decimals in range(min(digits, 4) + 1)]


def some_numbers(column, most_digits, seed):
    """ROWS numbers: the ends of the column's range, both zeros, powers of ten and two with their
    neighbours, then random ones of every length. They are decimals, which have a negative zero."""
    source = random.Random(f"{seed} {column.name}")
    least, largest = column.limits

    def fits(number):
        return least <= number <= largest and abs(number) < 10 ** most_digits

    def random_number():
        number = source.randrange(10 ** source.randint(1, min(column.digits, most_digits)))
        return -number if column.usage.signed and source.random() < 0.5 else number

    ends = [n for n in (largest, largest - 1, least, least + 1, 0) if fits(n)]
    powers = [10 ** n for n in range(20)] + [2 ** n for n in range(65)]
    edges = [n for power in powers for n in (power - 1, power, -power, 1 - power) if fits(n)]
    source.shuffle(edges)
    numbers = [decimal.Decimal(n) for n in dict.fromkeys(ends + edges[:ROWS // 2])]
    if column.usage.signed:
        numbers.append(decimal.Decimal("-0"))
    while len(numbers) < ROWS:
        numbers.append(decimal.Decimal(random_number()))
    return [number.scaleb(-column.decimals) for number in numbers]


def joined(columns, fields):
    """The records that hold the fields of each column."""
    return b"".join(b"".join(record) for record in zip(*(fields[column] for column in columns)))


def cut(columns, records, width_of):
    """The fields of each column in records of these columns."""
    length = sum(map(width_of, columns))
    fields, at = {}, 0
    for column in columns:
        width = width_of(column)
        fields[column] = [records[start + at:start + at + width]
                          for start in range(0, len(records), length)]
        at += width
    return fields


def shown_form(column, number):
    """A number as in shown.cpy: a sign, and digits without a point."""
    sign = "-" if number.is_signed() else "+"
    return f"{sign}{int(abs(number.scaleb(column.decimals))):0{SHOWN_DIGITS}d}".encode()


class Programs:
    """encode.cob and decode.cob for some columns, compiled with some options."""

    def __init__(self, compiler, columns, *options):
        self.columns = columns
        self.folder = tempfile.mkdtemp()
        self.put("stored.cpy", "".join(f"    05 {c.name} {c.stored_item}.\n" for c in columns))
        self.put("shown.cpy", "".join(f"    05 {c.name} {c.shown_item}.\n" for c in columns))
        self.put("class-tests.cpy", "".join(
            f"if {c.name} of stored is not numeric display record-number \" {c.name}\" end-if\n"
            for c in columns))
        for program in ("encode", "decode"):
            self.run(compiler, "-x", "-free", "-Wall", "-Werror", *options, "-o", program,
                     os.path.join(SOURCES, program + ".cob"))

    def encode(self, numbers):
        """Stores the numbers of each column: the fields, and the numbers that COBOL sees there."""
        self.put("asked", joined(self.columns, {column: [shown_form(column, number)
                                                         for number in numbers[column]]
                                                for column in self.columns}))
        self.run("./encode")
        return cut(self.columns, self.get("stored"), lambda column: column.width), self.shown()

    def decode(self, fields):
        """The numbers that COBOL sees in the fields, and for each whether it is NUMERIC."""
        self.put("stored", joined(self.columns, fields))
        others = set(self.run("./decode").splitlines())
        numeric = {column: [f"{i:06d} {column.name}" not in others
                            for i in range(1, len(fields[column]) + 1)]
                   for column in self.columns}
        return self.shown(), numeric

    def shown(self):
        fields = cut(self.columns, self.get("shown"), lambda _: 1 + SHOWN_DIGITS)
        return {column: [decimal.Decimal(text.decode()).scaleb(-column.decimals)
                         for text in fields[column]] for column in self.columns}

    def put(self, name, content):
        with open(os.path.join(self.folder, name), "wb") as file:
            file.write(content.encode() if isinstance(content, str) else content)

    def get(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read()

    def run(self, *command):
        result = subprocess.run(command, cwd=self.folder, capture_output=True, text=True,
                                check=False)
        if result.returncode != 0 or result.stderr:
            raise RuntimeError(f"{command}: {result.stdout}{result.stderr}")
        return result.stdout
