*> Shows numbers that someone else stored, and prints the record number and the name of each field
*> that is not NUMERIC.
*> Files: "stored" (stored.cpy) -> "shown" (shown.cpy); class-tests.cpy has a test of each column.
identification division.
program-id. decode.
environment division.
input-output section.
file-control.
    select stored-file assign to "stored" organization sequential.
    select shown-file assign to "shown" organization sequential.
data division.
file section.
fd stored-file.
01 stored.
    copy "stored.cpy".
fd shown-file.
01 shown.
    copy "shown.cpy".
working-storage section.
01 at-end pic 9 value 0.
01 record-number pic 9(6) value 0.
procedure division.
    open input stored-file output shown-file
    read stored-file at end move 1 to at-end end-read
    perform until at-end = 1
        add 1 to record-number
        copy "class-tests.cpy".
        move corresponding stored to shown
        write shown
        read stored-file at end move 1 to at-end end-read
    end-perform
    close stored-file shown-file
    stop run.
