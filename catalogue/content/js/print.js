'use strict';

/*
 * The program writes the captions of a table as its first row. For the printer that row becomes the
 * table's head, which stands on every sheet. Rows that lack cells are filled up, so that the lines
 * under them run through. Texts too long for one line are marked. Fields show their text beside them,
 * as a field would cut a long one. Only the printer shows all this, and it goes again when the
 * printing is done.
 */
(() => {
    function captionedTables() {
        return [...document.querySelectorAll('#list > table')]
            .filter(table => table.rows.length > 0 && table.rows[0].querySelector('.prodCaption'));
    }

    const filler = 'filler';
    const fieldText = 'fieldText';
    const moreThanAnyRow = 12;
    const longText = 'longText';
    const longestUnbroken = 20;

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

    /** Numbers, sizes and prices stay in one line, unless that line would need half the sheet. */
    function markLongTexts() {
        for (const cell of document.querySelectorAll('.contListRow > td')) {
            if (cell.textContent.length > longestUnbroken)
                cell.classList.add(longText);
        }
    }

    function dress() {
        undress();
        addFieldTexts();
        markLongTexts();
        for (const table of captionedTables()) {
            table.createTHead().append(table.rows[0]);
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
        }
        document.querySelectorAll(`#list .${filler}, #list .${fieldText}`)
            .forEach(addition => addition.remove());
        document.querySelectorAll(`.${longText}`).forEach(cell => cell.classList.remove(longText));
    }

    window.addEventListener('beforeprint', dress);
    window.addEventListener('afterprint', undress);
})();
