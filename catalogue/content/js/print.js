'use strict';

/*
 * The program writes the captions of a table as its first row. For the printer that row becomes the
 * table's head, which stands on every sheet, and an empty foot keeps the rows clear of the address
 * line. Both go again when the printing is done.
 */
(() => {
    function captionedTables() {
        return [...document.querySelectorAll('#list > table')]
            .filter(table => table.rows.length > 0 && table.rows[0].querySelector('.prodCaption'));
    }

    function dress() {
        for (const table of captionedTables()) {
            if (table.tHead)
                continue;
            table.createTHead().append(table.rows[0]);
            table.createTFoot().insertRow().insertCell().colSpan = 10;
        }
    }

    function undress() {
        for (const table of captionedTables()) {
            if (!table.tHead)
                continue;
            table.tBodies[0].prepend(table.tHead.rows[0]);
            table.deleteTHead();
            table.deleteTFoot();
        }
    }

    window.addEventListener('beforeprint', dress);
    window.addEventListener('afterprint', undress);
})();
