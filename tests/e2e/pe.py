"""Reads what a Windows program file says about itself: machine, imports, exports."""
import pathlib
import struct


class Image:
    def __init__(self, path):
        self.data = pathlib.Path(path).read_bytes()
        header = self._unpack("<I", 0x3C)[0]
        if self.data[header:header + 4] != b"PE\0\0":
            raise ValueError(f"{path} is not a PE file")
        self.machine, sections = self._unpack("<HH", header + 4)
        optional_size = self._unpack("<H", header + 20)[0]
        optional = header + 24
        self.is_64 = self._unpack("<H", optional)[0] == 0x20B
        self.subsystem_version = self._unpack("<HH", optional + 48)
        directories = optional + (112 if self.is_64 else 96)
        self.export_table = self._unpack("<I", directories)[0]
        self.import_table = self._unpack("<I", directories + 8)[0]
        self.sections = []
        for index in range(sections):
            entry = optional + optional_size + 40 * index
            size, address, raw_size, raw = self._unpack("<IIII", entry + 8)
            self.sections.append((address, max(size, raw_size), raw))

    @property
    def imports(self):
        """{(dll in lower case, function)}; an import by number is "#number"."""
        found = set()
        entry = self._offset(self.import_table)
        while True:
            names, _, _, dll, addresses = self._unpack("<IIIII", entry)
            if not dll:
                return found
            library = self._text(dll).lower()
            found |= {(library, name) for name in self._imported_names(names or addresses)}
            entry += 20

    @property
    def exports(self):
        """Names in the order of the table."""
        table = self._offset(self.export_table)
        count = self._unpack("<I", table + 24)[0]
        names = self._offset(self._unpack("<I", table + 32)[0])
        return [self._text(self._unpack("<I", names + 4 * i)[0]) for i in range(count)]

    def _imported_names(self, table):
        format, size, by_number = ("<Q", 8, 1 << 63) if self.is_64 else ("<I", 4, 1 << 31)
        thunk = self._offset(table)
        while value := self._unpack(format, thunk)[0]:
            yield f"#{value & 0xFFFF}" if value & by_number else self._text(value + 2)
            thunk += size

    def _unpack(self, format, offset):
        return struct.unpack_from(format, self.data, offset)

    def _offset(self, address):
        for start, size, raw in self.sections:
            if start <= address < start + size:
                return raw + address - start
        raise ValueError(f"address {address:#x} is in no section")

    def _text(self, address):
        start = self._offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")
