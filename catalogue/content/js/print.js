'use strict';

/*
 * The program writes the captions of a table as its first row. For the printer that row becomes the
 * table's head, which stands on every sheet, and an empty foot keeps the rows clear of the address
 * line. Rows that lack cells are filled up, so that the lines under them run through. Fields show
 * their text beside them, as a field would cut a long one. Only the printer shows all this, and it
 * goes again when the printing is done.
 */
(() => {
    function captionedTables() {
        return [...document.querySelectorAll('#list > table')]
            .filter(table => table.rows.length > 0 && table.rows[0].querySelector('.prodCaption'));
    }

    const filler = 'filler';
    const fieldText = 'fieldText';
    const moreThanAnyRow = 12;

    function addFiller(row) {
        const cell = row.insertCell();
        cell.className = filler;
        cell.hidden = true;
        cell.colSpan = moreThanAnyRow - row.cells.length;
    }

    function addFieldTexts() {
        for (const field of document.querySelectorAll('#list input')) {
            const text = document.createElement('span');
            text.className = fieldText;
            text.hidden = true;
            text.textContent = field.value;
            field.after(text);
        }
    }

    function dress() {
        undress();
        addFieldTexts();
        for (const table of captionedTables()) {
            table.createTHead().append(table.rows[0]);
            table.createTFoot().insertRow().insertCell().colSpan = moreThanAnyRow;
            if (table.align)
                [table.tHead.rows[0], ...table.querySelectorAll('tr.contListRow')].forEach(addFiller);
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
        document.querySelectorAll(`#list .${filler}, #list .${fieldText}`)
            .forEach(addition => addition.remove());
    }

    window.addEventListener('beforeprint', dress);
    window.addEventListener('afterprint', undress);
})();
