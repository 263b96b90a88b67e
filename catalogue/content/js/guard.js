'use strict';

/*
 * The texts of a shopping cart may come from a file that somebody else wrote, and the program writes
 * them into the page as they stand. So what it writes is read apart from the page first, where nothing
 * runs or loads, and only what the rows of a cart and plain texts consist of becomes part of the page.
 */
(() => {
    const guarded = ['caption', 'summary', 'list'];

    const harmlessElements = new Set(['A', 'B', 'BR', 'DIV', 'EM', 'I', 'IMG', 'INPUT', 'P', 'SMALL', 'SPAN',
        'STRONG', 'SUB', 'SUP', 'TABLE', 'TBODY', 'TD', 'TR', 'U']);
    const unseenElements = 'script, style, template';

    const harmlessAttributes = new Set(['align', 'alt', 'border', 'cellpadding', 'cellspacing', 'class', 'height',
        'id', 'title', 'type', 'valign', 'value', 'vspace', 'width']);
    const mark = /^changeBackgroundColor\('\w+', '\w+'\);$/;
    const knownValues = {
        // page.js goes to the address and keeps the script from running, whatever the address holds.
        'TD onclick': /^window\.location='file:.*';$/s,
        'TR onmouseover': mark,
        'TR onmouseout': mark,
        'INPUT onfocus': /^activateAlert\(this\)$/,
        'INPUT onblur': /^setAmount\(this(,'([^'\\]|\\.)*')?\)$/,
        'IMG src': /^img\/\w+\.gif$/,
    };
    const deletion = /^(javascript:if\(confirm\(')(.*)('\)\)\{ delItem\('\d+(?:_\d+)?'\) \})$/s;
    const scriptText = /^([^'\\\n\r\u2028\u2029]|\\')*$/;

    /** The text as a script's string can hold it; the texts of a language may have escaped apostrophes. */
    function escaped(text) {
        const sign = scriptText.test(text) ? /%/g : /[%'\\\n\r\u2028\u2029]/g;
        return text.replace(sign, found => '\\u' + found.charCodeAt(0).toString(16).padStart(4, '0'));
    }

    /** Puts an attribute right that may run something, or takes it away. */
    function cleanAttribute(element, name) {
        const value = element.getAttribute(name);
        const known = knownValues[`${element.tagName} ${name}`];
        const link = element.tagName === 'A' && name === 'href' && deletion.exec(value);
        if (link)
            element.setAttribute(name, link[1] + escaped(link[2]) + link[3]);
        else if (!(known && known.test(value)))
            element.removeAttribute(name);
    }

    function clean(root) {
        for (const element of root.querySelectorAll(unseenElements))
            element.remove();
        for (const element of root.querySelectorAll('*')) {
            if (!harmlessElements.has(element.tagName)) {
                element.replaceWith(...element.childNodes);
                continue;
            }
            for (const name of element.getAttributeNames()) {
                if (!harmlessAttributes.has(name))
                    cleanAttribute(element, name);
            }
        }
    }

    function guard(element) {
        const { get } = Object.getOwnPropertyDescriptor(Element.prototype, 'innerHTML');
        Object.defineProperty(element, 'innerHTML', {
            get,
            set: html => {
                const apart = document.createElement('template');
                apart.innerHTML = html;
                clean(apart.content);
                element.replaceChildren(apart.content);
            },
        });
    }

    document.addEventListener('DOMContentLoaded', () => {
        guarded.map(id => document.getElementById(id)).filter(element => element).forEach(guard);
    });
})();
